#pragma once

#include <windows.h>

#include "discovery/device_interface_scanner.h"

/// Looks for devices that offer an interface class and belong to a setup class. An all-zero class means any.
class WinDeviceScanFilter : public DeviceScanFilter {
 public:
  WinDeviceScanFilter(const GUID& wantedInterfaceClass, const GUID& wantedDeviceClass)
      : interfaceClass(wantedInterfaceClass), deviceClass(wantedDeviceClass) {}

  GUID getInterfaceClass() const { return interfaceClass; }
  GUID getDeviceClass() const { return deviceClass; }

 private:
  GUID interfaceClass;
  GUID deviceClass;
};
