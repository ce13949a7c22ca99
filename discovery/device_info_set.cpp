#include "discovery/device_info_set.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "utils/platform/narrow_text.h"

// In setupapi.dll and in its import library, but not in every header.
extern "C" WINSETUPAPI BOOL WINAPI SetupDiGetDeviceInterfacePropertyW(HDEVINFO set,
                                                                      PSP_DEVICE_INTERFACE_DATA deviceInterface,
                                                                      const DEVPROPKEY* key, DEVPROPTYPE* type,
                                                                      PBYTE buffer, DWORD size, PDWORD required,
                                                                      DWORD flags);

using vexa::utils::platform::narrowed;

namespace {

/// Zeros for `bytes` bytes of text and a terminating zero behind them, which the system does not promise to write.
std::vector<wchar_t> textBuffer(std::size_t bytes) {
  return std::vector<wchar_t>(bytes / sizeof(wchar_t) + 2);
}

BYTE* bytesOf(std::vector<wchar_t>& buffer) {
  return reinterpret_cast<BYTE*>(buffer.data());
}

/// Up to the first zero; nothing when the system refuses to convert.
std::optional<std::string> converted(const wchar_t* text) {
  std::string result = narrowed(text);
  if (result.empty() && *text != L'\0') return std::nullopt;
  return result;
}

/// Whether a call that was given no buffer told the size of the one it needs.
bool asksForBuffer(BOOL succeeded) {
  return !succeeded && GetLastError() == ERROR_INSUFFICIENT_BUFFER;
}

}  // namespace

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

std::optional<SP_DEVICE_INTERFACE_DATA> DeviceInfoSet::interfaceAt(SP_DEVINFO_DATA& device, const GUID& interfaceClass,
                                                                   DWORD index) const {
  SP_DEVICE_INTERFACE_DATA found{};
  found.cbSize = sizeof(found);
  if (!SetupDiEnumDeviceInterfaces(set, &device, &interfaceClass, index, &found)) return std::nullopt;
  return found;
}

std::optional<std::string> DeviceInfoSet::instanceId(SP_DEVINFO_DATA& device) const {
  DWORD length = 0;
  if (!asksForBuffer(SetupDiGetDeviceInstanceIdW(set, &device, nullptr, 0, &length))) return std::nullopt;

  std::vector<wchar_t> id(std::size_t{length} + 2);
  if (!SetupDiGetDeviceInstanceIdW(set, &device, id.data(), length + 1, nullptr)) return std::nullopt;
  return converted(id.data());
}

std::optional<std::string> DeviceInfoSet::interfacePath(SP_DEVICE_INTERFACE_DATA& deviceInterface) const {
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceInterfaceDetailW(set, &deviceInterface, nullptr, 0, &bytes, nullptr)) ||
      bytes < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W)) {
    return std::nullopt;
  }

  const auto block = std::make_unique<std::byte[]>(bytes + 2 * sizeof(wchar_t));
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(block.get());
  detail->cbSize = sizeof(*detail);
  if (!SetupDiGetDeviceInterfaceDetailW(set, &deviceInterface, detail, bytes, nullptr, nullptr)) return std::nullopt;
  return converted(detail->DevicePath);
}

std::optional<std::string> DeviceInfoSet::registryProperty(SP_DEVINFO_DATA& device, DWORD property) const {
  // Deliberate: a property of size zero, for which the call without a buffer succeeds, counts as absent. The name of a
  // camera falls back on it.
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, nullptr, 0, &bytes))) {
    return std::nullopt;
  }

  std::vector<wchar_t> value = textBuffer(bytes);
  if (!SetupDiGetDeviceRegistryPropertyW(set, &device, property, nullptr, bytesOf(value), bytes, nullptr)) {
    return std::nullopt;
  }
  return converted(value.data());
}

std::optional<std::string> DeviceInfoSet::interfaceProperty(SP_DEVICE_INTERFACE_DATA& deviceInterface,
                                                            const DEVPROPKEY& key) const {
  DEVPROPTYPE type = 0;
  DWORD bytes = 0;
  if (!asksForBuffer(SetupDiGetDeviceInterfacePropertyW(set, &deviceInterface, &key, &type, nullptr, 0, &bytes, 0))) {
    return std::nullopt;
  }

  // Deliberate: a buffer twice as large as asked for leaves room for a text that grows between the two calls. That only
  // the conversion decides is required; a name that can no longer be read is empty then, and the camera has no other.
  bytes *= 2;
  std::vector<wchar_t> value = textBuffer(bytes);
  SetupDiGetDeviceInterfacePropertyW(set, &deviceInterface, &key, &type, bytesOf(value), bytes, nullptr, 0);
  return converted(value.data());
}
