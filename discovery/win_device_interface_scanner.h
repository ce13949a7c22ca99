#pragma once

#include <windows.h>
#include <setupapi.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "discovery/device_info_set.h"
#include "discovery/device_interface_scanner.h"

/// Finds devices with SetupAPI. The filters it takes are WinDeviceScanFilter; any other kind is a failure.
class WinDeviceInterfaceScanner : public DeviceInterfaceScanner {
 public:
  WinDeviceInterfaceScanner() = default;
  ~WinDeviceInterfaceScanner() override = default;

  [[nodiscard]] std::uint32_t getDosDevicePaths(const std::string& prefix, std::vector<std::string>& paths) override;
  [[nodiscard]] std::uint32_t getInterfacePaths(std::uint32_t index, DeviceMap& found) override;
  [[nodiscard]] std::uint32_t getRegistryProperty(std::uint32_t index, std::uint32_t property, char** text) override;
  [[nodiscard]] std::uint32_t getParentInterfacePath(const DeviceScanFilter& filter, std::uint32_t index,
                                                     char** path) override;
  [[nodiscard]] std::uint32_t getParentRegistryProperty(const DeviceScanFilter& filter, std::uint32_t index,
                                                        std::uint32_t property, char** text) override;
  [[nodiscard]] std::uint32_t getDriverVersion(std::uint32_t index, char** text) override;
  std::size_t getDeviceCount() override;
  [[nodiscard]] std::uint32_t openDevice(const std::string& path, void** handle) override;
  [[nodiscard]] std::uint32_t lockVolume(void* handle) override;
  [[nodiscard]] std::uint32_t unlockVolume(void* handle) override;
  [[nodiscard]] std::uint32_t closeDevice(void* handle) override;
  std::uint32_t getScannerKind() override;

  /// Replaces `found` by the present devices that pass the filter and have an interface of its class. Returns 0, or 1
  /// when there was no search; `found` is empty then.
  [[nodiscard]] std::uint32_t search(const DeviceScanFilter& filter, DeviceMap& found);
  /// A text property of an interface that the last search found; empty when it is there but can no longer be read. The
  /// caller frees `text` with delete[].
  [[nodiscard]] std::uint32_t getInterfaceProperty(const std::string& path, const DEVPROPKEY& key, char** text);
  /// The version of the driver with this subkey below the device class key: nothing when it has none, empty when it has
  /// one that cannot be read.
  static std::optional<std::string> readDriverVersion(const std::string& driverKey);

 private:
  /// Opens the set and fills `devices`; false when there is none to open.
  [[nodiscard]] bool openDevices(const DeviceScanFilter& filter);
  /// Adds the interfaces of `devices[index]`; false when its instance id cannot be read.
  [[nodiscard]] bool addInterfaces(std::uint32_t index, DeviceMap& found);
  /// The device instance id of the parent of `devices[index]`.
  std::optional<std::string> parentId(std::uint32_t index) const;

  /// Those of the last search. A device's index is its position here.
  std::vector<SP_DEVINFO_DATA> devices;
  /// Interface path to interface, of the last search.
  std::map<std::string, SP_DEVICE_INTERFACE_DATA> interfaces;
  DeviceInfoSet deviceInfoSet;
  GUID interfaceClass{};
  GUID deviceClass{};
};
