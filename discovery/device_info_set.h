#pragma once

#include <windows.h>
#include <setupapi.h>

#include <optional>
#include <string>

/// Owns a SetupAPI device information set and reads what is in it, as UTF-8. Operations on a closed set find nothing.
/// SetupAPI asks for its records without `const`, but leaves them as they are.
class DeviceInfoSet {
 public:
  DeviceInfoSet() = default;
  ~DeviceInfoSet() { close(); }
  DeviceInfoSet(const DeviceInfoSet&) = delete;
  DeviceInfoSet& operator=(const DeviceInfoSet&) = delete;

  /// Closes the set before it opens another. `devicesClass` may be null; `flags` are DIGCF flags.
  [[nodiscard]] bool open(const GUID* devicesClass, DWORD flags);
  void close();

  /// Nothing beyond the last one: enumerate from 0 upward until then.
  std::optional<SP_DEVINFO_DATA> deviceAt(DWORD index) const;
  std::optional<SP_DEVICE_INTERFACE_DATA> interfaceAt(SP_DEVINFO_DATA& device, const GUID& interfaceClass,
                                                      DWORD index) const;
  /// The first device whose instance id `matches`.
  template <class Predicate>
  std::optional<SP_DEVINFO_DATA> findDevice(Predicate matches) const {
    for (DWORD index = 0; auto device = deviceAt(index); ++index) {
      const auto id = instanceId(*device);
      if (id && matches(*id)) return device;
    }
    return std::nullopt;
  }

  std::optional<std::string> instanceId(SP_DEVINFO_DATA& device) const;
  std::optional<std::string> interfacePath(SP_DEVICE_INTERFACE_DATA& deviceInterface) const;
  /// The first text of an SPDRP property; nothing when it is absent or unreadable.
  std::optional<std::string> registryProperty(SP_DEVINFO_DATA& device, DWORD property) const;
  /// A text property of an interface: nothing when it is absent, empty when it is there but cannot be read.
  std::optional<std::string> interfaceProperty(SP_DEVICE_INTERFACE_DATA& deviceInterface, const DEVPROPKEY& key) const;

 private:
  HDEVINFO set = INVALID_HANDLE_VALUE;
};
