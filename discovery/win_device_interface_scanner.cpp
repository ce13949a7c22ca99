#include "discovery/win_device_interface_scanner.h"

#include <cfgmgr32.h>
#include <winioctl.h>

#include <cstring>
#include <memory>
#include <utility>

#include "discovery/device_paths.h"
#include "discovery/win_device_scan_filter.h"
#include "module/host_services.h"
#include "utils/platform/narrow_text.h"

using vexa::utils::platform::narrowed;
using vexa::utils::platform::widened;

namespace {

/// The host's number for this kind of scanner.
constexpr std::uint32_t kScannerKind = 4;

/// The longest DOS device name that is looked at, in bytes.
constexpr std::size_t kLongestName = 261;

struct EndOfHandle {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// Answers as an operation that hands out a text: a copy that is the caller's, or 1.
std::uint32_t handOut(const std::optional<std::string>& text, char** out) {
  if (!text) return 1;
  *out = new char[text->size() + 1];
  std::memcpy(*out, text->c_str(), text->size() + 1);
  return 0;
}

/// The system's DOS device names, each with its terminating zero; nothing on failure.
std::optional<std::string> dosDeviceNames() {
  std::wstring names(kLongestName, L'\0');
  for (;;) {
    const DWORD length = QueryDosDeviceW(nullptr, names.data(), static_cast<DWORD>(names.size()));
    if (length != 0) {
      std::string list = narrowed({names.data(), length});
      return list.empty() ? std::nullopt : std::optional(std::move(list));
    }
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
    names.resize(names.size() * 2);
  }
}

/// Runs a control code on a handle that was opened for overlapped use, and waits for its end.
std::uint32_t controlVolume(HANDLE handle, DWORD code) {
  const std::unique_ptr<void, EndOfHandle> event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  if (!event) return 1;

  OVERLAPPED operation{};
  operation.hEvent = event.get();
  const BOOL done = DeviceIoControl(handle, code, nullptr, 0, nullptr, 0, nullptr, &operation);
  if (!done && GetLastError() != ERROR_IO_PENDING) return 1;
  DWORD returned = 0;
  return GetOverlappedResult(handle, &operation, &returned, TRUE) ? 0 : 1;
}

}  // namespace

std::uint32_t WinDeviceInterfaceScanner::search(const DeviceScanFilter& filter, DeviceMap& found) {
  found.clear();
  interfaces.clear();
  if (!openDevices(filter)) return 1;

  // A device whose id cannot be read contributes nothing; the others still count.
  for (std::uint32_t index = 0; index < devices.size(); ++index) static_cast<void>(addInterfaces(index, found));
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

bool WinDeviceInterfaceScanner::addInterfaces(std::uint32_t index, DeviceMap& found) {
  const auto id = deviceInfoSet.instanceId(devices[index]);
  if (!id) return false;

  for (DWORD member = 0; auto deviceInterface = deviceInfoSet.interfaceAt(devices[index], interfaceClass, member);
       ++member) {
    auto path = deviceInfoSet.interfacePath(*deviceInterface);
    if (!path) continue;
    interfaces.insert_or_assign(*path, *deviceInterface);
    DeviceEntry& entry = found[*id];
    entry.deviceIndex = index;
    entry.interfacePaths.push_back(*std::move(path));
  }
  return true;
}

std::uint32_t WinDeviceInterfaceScanner::getInterfacePaths(std::uint32_t index, DeviceMap& found) {
  found.clear();
  return index < devices.size() && addInterfaces(index, found) ? 0 : 1;
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

std::optional<std::string> WinDeviceInterfaceScanner::readDriverVersion(const std::string& driverKey) {
  const std::wstring key = L"SYSTEM\\CurrentControlSet\\Control\\Class\\" + widened(driverKey);
  const auto read = [&key](wchar_t* buffer, DWORD& bytes) {
    return RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"DriverVersion", RRF_RT_REG_SZ, nullptr, buffer, &bytes);
  };

  DWORD bytes = 0;
  if (read(nullptr, bytes) != ERROR_SUCCESS) return std::nullopt;

  // Deliberate: a zero-filled buffer twice as large as asked for. A text that grew since still fits, and one that can
  // no longer be read is an empty version, not the version of another device.
  bytes *= 2;
  std::vector<wchar_t> value(bytes / sizeof(wchar_t) + 1);
  if (read(value.data(), bytes) != ERROR_SUCCESS) return std::string();
  return narrowed(value.data());
}

std::uint32_t WinDeviceInterfaceScanner::getDriverVersion(std::uint32_t index, char** text) {
  const auto driverKey = takeText([&](char** key) { return getRegistryProperty(index, SPDRP_DRIVER, key); });
  if (!driverKey) return 1;
  const auto version = readDriverVersion(*driverKey);
  return version && !version->empty() ? handOut(version, text) : 1;
}

std::size_t WinDeviceInterfaceScanner::getDeviceCount() {
  return devices.size();
}

std::uint32_t WinDeviceInterfaceScanner::getScannerKind() {
  return kScannerKind;
}

std::optional<std::string> WinDeviceInterfaceScanner::parentId(std::uint32_t index) const {
  if (index >= devices.size()) return std::nullopt;

  DEVINST parent = 0;
  if (CM_Get_Parent(&parent, devices[index].DevInst, 0) != CR_SUCCESS) return std::nullopt;
  ULONG length = 0;
  if (CM_Get_Device_ID_Size(&length, parent, 0) != CR_SUCCESS) return std::nullopt;
  std::wstring id(length, L'\0');
  // The string's own terminating zero is the last of the length + 1 characters that the call may write.
  if (CM_Get_Device_IDW(parent, id.data(), length + 1, 0) != CR_SUCCESS) return std::nullopt;
  std::string narrowId = narrowed(id);
  // An empty id would be a part of every other.
  return narrowId.empty() ? std::nullopt : std::optional(std::move(narrowId));
}

std::uint32_t WinDeviceInterfaceScanner::getParentInterfacePath(const DeviceScanFilter& filter, std::uint32_t index,
                                                                char** path) {
  const auto* wanted = dynamic_cast<const WinDeviceScanFilter*>(&filter);
  const auto parent = wanted ? parentId(index) : std::nullopt;
  if (!parent) return 1;

  const GUID parentClass = wanted->getInterfaceClass();
  DeviceInfoSet candidates;
  if (!candidates.open(&parentClass, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE)) return 1;
  // Instance ids are ASCII.
  auto device =
      candidates.findDevice([&](const std::string& id) { return _stricmp(id.c_str(), parent->c_str()) == 0; });
  if (!device) return 1;
  auto parentInterface = candidates.interfaceAt(*device, parentClass, 0);
  return parentInterface ? handOut(candidates.interfacePath(*parentInterface), path) : 1;
}

std::uint32_t WinDeviceInterfaceScanner::getParentRegistryProperty(const DeviceScanFilter& filter, std::uint32_t index,
                                                                   std::uint32_t property, char** text) {
  const auto* wanted = dynamic_cast<const WinDeviceScanFilter*>(&filter);
  const auto parent = wanted ? parentId(index) : std::nullopt;
  if (!parent) return 1;

  const GUID parentClass = wanted->getDeviceClass();
  DeviceInfoSet candidates;
  if (!candidates.open(&parentClass, DIGCF_PRESENT | DIGCF_PROFILE)) return 1;
  auto device = candidates.findDevice([&](const std::string& id) { return id.find(*parent) != std::string::npos; });
  return device ? handOut(candidates.registryProperty(*device, property), text) : 1;
}

std::uint32_t WinDeviceInterfaceScanner::getDosDevicePaths(const std::string& prefix, std::vector<std::string>& paths) {
  const auto list = dosDeviceNames();
  if (!list) return 1;

  std::vector<char> names(list->size() + 1);
  if (get_string_handler()->copyBounded(names.data(), names.size(), list->data(), list->size()) == 0) return 1;

  for (const char* name = names.data(); *name != '\0'; name += std::strlen(name) + 1) {
    const std::string_view bounded(name, get_string_handler()->boundedLength(name, kLongestName));
    const bool isWhole = name[bounded.size()] == '\0';
    if (isWhole && bounded.starts_with(prefix)) paths.push_back(std::string(kDevicePathPrefix).append(bounded));
  }
  return 0;
}

std::uint32_t WinDeviceInterfaceScanner::openDevice(const std::string& path, void** handle) {
  // Named, so that it is freed only after the error has been read.
  const std::wstring widePath = widened(path);
  *handle = CreateFileW(widePath.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  return *handle == INVALID_HANDLE_VALUE ? GetLastError() : 0;
}

std::uint32_t WinDeviceInterfaceScanner::lockVolume(void* handle) {
  return controlVolume(handle, FSCTL_LOCK_VOLUME);
}

std::uint32_t WinDeviceInterfaceScanner::unlockVolume(void* handle) {
  return controlVolume(handle, FSCTL_UNLOCK_VOLUME);
}

std::uint32_t WinDeviceInterfaceScanner::closeDevice(void* handle) {
  return CloseHandle(handle) ? 0 : 1;
}
