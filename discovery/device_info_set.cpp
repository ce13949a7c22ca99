#include "discovery/device_info_set.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

// In setupapi.dll and in its import library, but not in every header.
extern "C" WINSETUPAPI BOOL WINAPI SetupDiGetDeviceInterfacePropertyW(HDEVINFO set,
                                                                      PSP_DEVICE_INTERFACE_DATA deviceInterface,
                                                                      const DEVPROPKEY* key, DEVPROPTYPE* type,
                                                                      PBYTE buffer, DWORD size, PDWORD required,
                                                                      DWORD flags);

namespace {

/// Up to the first zero, which the system does not promise to write.
std::wstring_view firstText(const wchar_t* text, std::size_t limit) {
  return {text, wcsnlen(text, limit)};
}

/// A zero-filled buffer that holds at least `bytes` bytes.
std::vector<wchar_t> wideBuffer(std::size_t bytes) {
  return std::vector<wchar_t>((bytes + sizeof(wchar_t) - 1) / sizeof(wchar_t));
}

/// Whether a call that was given no buffer told the size of the one it needs.
bool asksForBuffer(BOOL succeeded) {
  return !succeeded && GetLastError() == ERROR_INSUFFICIENT_BUFFER;
}

}  // namespace

DeviceInfoSet::DeviceInfoSet(const GUID* devicesClass, DWORD flags) {
  open(devicesClass, flags);
}

bool DeviceInfoSet::open(const GUID* devicesClass, DWORD flags) {
  close();
  set = SetupDiGetClassDevsW(devicesClass, nullptr, nullptr, flags);
  return set != INVALID_HANDLE_VALUE;
}

void DeviceInfoSet::close() {
  if (set == INVALID_HANDLE_VALUE) return;
  SetupDiDestroyDeviceInfoList(set);
  set = INVALID_HANDLE_VALUE;
}

std::optional<SP_DEVINFO_DATA> DeviceInfoSet::deviceAt(DWORD index) const {
  SP_DEVINFO_DATA device{};
  device.cbSize = sizeof(device);
  if (!SetupDiEnumDeviceInfo(set, index, &device)) return std::nullopt;
  return device;
}

std::optional<SP_DEVICE_INTERFACE_DATA> DeviceInfoSet::interfaceAt(SP_DEVINFO_DATA device, const GUID& interfaceClass,
                                                                   DWORD index) const {
  SP_DEVICE_INTERFACE_DATA found{};
  found.cbSize = sizeof(found);
  if (!SetupDiEnumDeviceInterfaces(set, &device, &interfaceClass, index, &found)) return std::nullopt;
  return found;
}

std::optional<std::wstring> DeviceInfoSet::instanceId(SP_DEVINFO_DATA device) const {
  DWORD length = 0;
  if (!asksForBuffer(SetupDiGetDeviceInstanceIdW(set, &device, nullptr, 0, &length))) return std::nullopt;

  std::vector<wchar_t> id(std::size_t{length} + 1);
  if (!SetupDiGetDeviceInstanceIdW(set, &device, id.data(), static_cast<DWORD>(id.size()), nullptr))
    return std::nullopt;
  return std::wstring(firstText(id.data(), id.size()));
}

std::optional<std::wstring> DeviceInfoSet::interfacePath(SP_DEVICE_INTERFACE_DATA deviceInterface) const {
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceInterfaceDetailW(set, &deviceInterface, nullptr, 0, &bytes, nullptr)) ||
      bytes < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W)) {
    return std::nullopt;
  }

  const auto block = std::make_unique<std::byte[]>(bytes);
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(block.get());
  detail->cbSize = sizeof(*detail);
  if (!SetupDiGetDeviceInterfaceDetailW(set, &deviceInterface, detail, bytes, nullptr, nullptr)) return std::nullopt;
  const std::size_t limit = (bytes - offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_W, DevicePath)) / sizeof(wchar_t);
  return std::wstring(firstText(detail->DevicePath, limit));
}

OwnedText DeviceInfoSet::registryProperty(SP_DEVINFO_DATA device, DWORD property) const {
  // Deliberate: a property of size zero, for which the call without a buffer succeeds, counts as absent. The name of a
  // camera falls back on it.
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, nullptr, 0, &bytes))) {
    return nullptr;
  }

  std::vector<wchar_t> value = wideBuffer(bytes);
  if (!SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, reinterpret_cast<BYTE*>(value.data()), bytes,
                                         nullptr)) {
    return nullptr;
  }
  return narrowedWithin(firstText(value.data(), value.size()), bytes);
}

OwnedText DeviceInfoSet::interfaceProperty(SP_DEVICE_INTERFACE_DATA deviceInterface, const DEVPROPKEY& key) const {
  DEVPROPTYPE type = 0;
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceInterfacePropertyW(set, &deviceInterface, &key, &type, nullptr, 0, &bytes, 0))) {
    return nullptr;
  }

  // Deliberate: a buffer twice as large as asked for leaves room for a text that grows between the two calls.
  std::vector<wchar_t> value = wideBuffer(std::size_t{bytes} * 2);
  if (!SetupDiGetDeviceInterfacePropertyW(set, &deviceInterface, &key, &type, reinterpret_cast<BYTE*>(value.data()),
                                          bytes * 2, nullptr, 0)) {
    return nullptr;
  }
  return narrowedWithin(firstText(value.data(), value.size()), bytes);
}
