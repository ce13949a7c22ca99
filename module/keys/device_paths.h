#pragma once

// Prefixes of device interface paths. They are compared byte by byte: a path in capitals is another path.

#include <string>

const std::string kDevicePathPrefix = "\\\\?\\";
const std::string kUsbDevicePathPrefix = "\\\\?\\usb";
const std::string kDisplayDevicePathPrefix = "\\\\?\\display";
