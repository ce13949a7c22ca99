#include "discovery/win_device_interface_scanner.h"

#include "discovery/driver_version.h"
#include "discovery/win_device_scan_filter.h"

namespace {

/// The host's number for this kind of scanner.
constexpr std::uint32_t kScannerKind = 4;

}  // namespace

std::uint32_t WinDeviceInterfaceScanner::search(const DeviceScanFilter& filter, DeviceMap& found) {
  found.clear();
  interfaces.clear();
  if (!openDevices(filter)) return 1;

  // A device whose id cannot be read contributes nothing; the others still count.
  for (std::uint32_t index = 0; index < devices.size(); ++index) getInterfacePaths(index, found);
  return 0;
}

bool WinDeviceInterfaceScanner::openDevices(const DeviceScanFilter& filter) {
  const auto* wanted = dynamic_cast<const WinDeviceScanFilter*>(&filter);
  if (!wanted) return false;

  interfaceClass = wanted->getInterfaceClass();
  deviceClass = wanted->getDeviceClass();
  devices.clear();
  const bool opened = interfaceClass == GUID{}
                          ? deviceInfoSet.open(nullptr, DIGCF_PRESENT | DIGCF_ALLCLASSES)
                          : deviceInfoSet.open(&interfaceClass, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  if (!opened) return false;

  for (DWORD index = 0; const auto device = deviceInfoSet.deviceAt(index); ++index) devices.push_back(*device);
  if (deviceClass != GUID{}) {
    std::erase_if(devices, [this](const SP_DEVINFO_DATA& device) { return device.ClassGuid != deviceClass; });
  }
  return true;
}

std::uint32_t WinDeviceInterfaceScanner::getInterfacePaths(std::uint32_t index, DeviceMap& found) {
  if (index >= devices.size()) return 1;
  const auto id = deviceInfoSet.instanceId(devices[index]);
  if (!id) return 1;

  const std::string narrowId = narrowed(*id);
  for (DWORD member = 0; const auto deviceInterface = deviceInfoSet.interfaceAt(devices[index], interfaceClass, member);
       ++member) {
    const auto path = deviceInfoSet.interfacePath(*deviceInterface);
    if (!path) continue;
    const std::string narrowPath = narrowed(*path);
    DeviceEntry& entry = found[narrowId];
    entry.deviceIndex = index;
    entry.interfacePaths.push_back(narrowPath);
    interfaces.insert_or_assign(narrowPath, *deviceInterface);
  }
  return 0;
}

std::uint32_t WinDeviceInterfaceScanner::getRegistryProperty(std::uint32_t index, std::uint32_t property, char** text) {
  if (index >= devices.size()) return 1;
  return handOut(deviceInfoSet.registryProperty(devices[index], property), text);
}

std::uint32_t WinDeviceInterfaceScanner::getInterfaceProperty(const std::string& path, const DEVPROPKEY& key,
                                                              char** text) {
  const auto deviceInterface = interfaces.find(path);
  if (deviceInterface == interfaces.end()) return 1;
  return handOut(deviceInfoSet.interfaceProperty(deviceInterface->second, key), text);
}

std::uint32_t WinDeviceInterfaceScanner::getDriverVersion(std::uint32_t index, char** text) {
  const auto driverKey = takeText([&](char** key) { return getRegistryProperty(index, SPDRP_DRIVER, key); });
  if (!driverKey) return 1;

  std::string version;
  if (readDriverVersion(*driverKey, version) != DriverVersionRead::kRead) return 1;
  return handOut(ownedCopy(version), text);
}

std::size_t WinDeviceInterfaceScanner::getDeviceCount() {
  return devices.size();
}

std::uint32_t WinDeviceInterfaceScanner::getScannerKind() {
  return kScannerKind;
}
