#pragma once

// Prefixes of device interface paths. They are compared byte by byte: a path in capitals is another path.

inline constexpr char kDevicePathPrefix[] = "\\\\?\\";
inline constexpr char kUsbDevicePathPrefix[] = "\\\\?\\usb";
inline constexpr char kDisplayDevicePathPrefix[] = "\\\\?\\display";
