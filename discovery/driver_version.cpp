#include "discovery/driver_version.h"

#include <windows.h>

#include <vector>

#include "discovery/narrow_text.h"

DriverVersionRead readDriverVersion(const std::string& driverKey, std::string& version) {
  const std::wstring key = L"SYSTEM\\CurrentControlSet\\Control\\Class\\" + widened(driverKey);
  const auto read = [&key](wchar_t* buffer, DWORD& bytes) {
    return RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"DriverVersion", RRF_RT_REG_SZ, nullptr, buffer, &bytes);
  };

  DWORD bytes = 0;
  if (read(nullptr, bytes) != ERROR_SUCCESS) return DriverVersionRead::kAbsent;

  // Deliberate: a zero-filled buffer twice as large as asked for. A text that grew since still fits, and one that can
  // no longer be read is an empty version, not the version of another device.
  bytes *= 2;
  std::vector<wchar_t> value(bytes / sizeof(wchar_t) + 1);
  const LSTATUS status = read(value.data(), bytes);
  if (status != ERROR_SUCCESS) value.front() = L'\0';
  version = narrowed(value.data());
  return status == ERROR_SUCCESS ? DriverVersionRead::kRead : DriverVersionRead::kUnreadable;
}
