#pragma once

#include <windows.h>
#include <setupapi.h>

#include <optional>
#include <string>

#include "discovery/narrow_text.h"

/// Owns a SetupAPI device information set and reads what is in it. Operations on a closed set find nothing.
class DeviceInfoSet {
 public:
  DeviceInfoSet() = default;
  /// `devicesClass` may be null; `flags` are DIGCF flags. The set stays closed when the system fails.
  DeviceInfoSet(const GUID* devicesClass, DWORD flags);
  ~DeviceInfoSet() { close(); }
  DeviceInfoSet(const DeviceInfoSet&) = delete;
  DeviceInfoSet& operator=(const DeviceInfoSet&) = delete;

  bool open(const GUID* devicesClass, DWORD flags);
  void close();

  /// Nothing beyond the last one: enumerate from 0 upward until then.
  std::optional<SP_DEVINFO_DATA> deviceAt(DWORD index) const;
  std::optional<SP_DEVICE_INTERFACE_DATA> interfaceAt(SP_DEVINFO_DATA device, const GUID& interfaceClass,
                                                      DWORD index) const;

  std::optional<std::wstring> instanceId(SP_DEVINFO_DATA device) const;
  std::optional<std::wstring> interfacePath(SP_DEVICE_INTERFACE_DATA deviceInterface) const;
  /// The first text of an SPDRP property, in a block of the property's size; null when it is absent or unreadable.
  OwnedText registryProperty(SP_DEVINFO_DATA device, DWORD property) const;
  /// A text property of an interface, in a block of the property's size; null when it is absent or unreadable.
  OwnedText interfaceProperty(SP_DEVICE_INTERFACE_DATA deviceInterface, const DEVPROPKEY& key) const;

 private:
  HDEVINFO set = INVALID_HANDLE_VALUE;
};
