// The operations of WinDeviceInterfaceScanner that ask the configuration manager for a device's parent.

#include <windows.h>
#include <cfgmgr32.h>

#include "discovery/win_device_interface_scanner.h"
#include "discovery/win_device_scan_filter.h"

namespace {

bool equalIgnoringCase(const std::wstring& left, const std::wstring& right) {
  return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

std::optional<std::wstring> WinDeviceInterfaceScanner::parentId(std::uint32_t index) const {
  if (index >= devices.size()) return std::nullopt;

  DEVINST parent = 0;
  if (CM_Get_Parent(&parent, devices[index].DevInst, 0) != CR_SUCCESS) return std::nullopt;
  ULONG length = 0;
  if (CM_Get_Device_ID_Size(&length, parent, 0) != CR_SUCCESS) return std::nullopt;
  std::wstring id(length, L'\0');
  // The string's own terminating zero is the last of the length + 1 characters that the call may write.
  if (CM_Get_Device_IDW(parent, id.data(), length + 1, 0) != CR_SUCCESS) return std::nullopt;
  return id;
}

std::uint32_t WinDeviceInterfaceScanner::getParentInterfacePath(const DeviceScanFilter& filter, std::uint32_t index,
                                                                char** path) {
  const auto* wanted = dynamic_cast<const WinDeviceScanFilter*>(&filter);
  if (!wanted) return 1;
  const auto wantedId = parentId(index);
  if (!wantedId) return 1;

  const GUID parentClass = wanted->getInterfaceClass();
  const DeviceInfoSet candidates(&parentClass, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  for (DWORD candidate = 0; const auto device = candidates.deviceAt(candidate); ++candidate) {
    const auto id = candidates.instanceId(*device);
    if (!id || !equalIgnoringCase(*id, *wantedId)) continue;
    const auto parentInterface = candidates.interfaceAt(*device, parentClass, 0);
    const auto found = parentInterface ? candidates.interfacePath(*parentInterface) : std::nullopt;
    if (!found) return 1;
    return handOut(ownedCopy(narrowed(*found)), path);
  }
  return 1;
}

std::uint32_t WinDeviceInterfaceScanner::getParentRegistryProperty(const DeviceScanFilter& filter, std::uint32_t index,
                                                                   std::uint32_t property, char** text) {
  const auto* wanted = dynamic_cast<const WinDeviceScanFilter*>(&filter);
  if (!wanted) return 1;
  const auto wantedId = parentId(index);
  if (!wantedId) return 1;

  const GUID parentClass = wanted->getDeviceClass();
  const DeviceInfoSet candidates(&parentClass, DIGCF_PRESENT | DIGCF_PROFILE);
  for (DWORD candidate = 0; const auto device = candidates.deviceAt(candidate); ++candidate) {
    const auto id = candidates.instanceId(*device);
    if (!id || id->find(*wantedId) == std::wstring::npos) continue;
    return handOut(candidates.registryProperty(*device, property), text);
  }
  return 1;
}
