// The operations of WinDeviceInterfaceScanner on DOS device names and opened devices.

#include <windows.h>
#include <winioctl.h>

#include <cstring>

#include "discovery/win_device_interface_scanner.h"
#include "module/host_services.h"
#include "module/keys/device_paths.h"

namespace {

/// The longest device name, with its zero, in characters.
constexpr std::size_t kLongestName = 261;

/// The system's DOS device names, each with its terminating zero; nothing on failure.
std::optional<std::wstring> dosDeviceNames() {
  std::wstring names(kLongestName, L'\0');
  for (;;) {
    const DWORD length = QueryDosDeviceW(nullptr, names.data(), static_cast<DWORD>(names.size()));
    if (length != 0) {
      names.resize(length);
      return names;
    }
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
    names.assign(names.size() * 2, L'\0');
  }
}

std::uint32_t controlVolume(void* handle, DWORD code) {
  DWORD returned = 0;
  return DeviceIoControl(handle, code, nullptr, 0, nullptr, 0, &returned, nullptr) ? 0 : 1;
}

}  // namespace

std::uint32_t WinDeviceInterfaceScanner::getDosDevicePaths(const std::string& prefix, std::vector<std::string>& paths) {
  const auto wideNames = dosDeviceNames();
  if (!wideNames) return 1;

  const std::string list = narrowed(*wideNames);
  std::vector<char> names(list.size() + 1);
  if (get_string_handler()->copyBounded(names.data(), names.size(), list.data(), list.size()) == 0) return 1;

  for (std::size_t position = 0; position < list.size();) {
    const char* start = names.data() + position;
    const std::string name(start, get_string_handler()->boundedLength(start, kLongestName));
    if (name.empty()) break;
    if (name.starts_with(prefix)) paths.push_back(kDevicePathPrefix + name);
    position += name.size() + 1;
  }
  return 0;
}

std::uint32_t WinDeviceInterfaceScanner::openDevice(const std::string& path, void** handle) {
  *handle = CreateFileW(widened(path).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                        nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
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
