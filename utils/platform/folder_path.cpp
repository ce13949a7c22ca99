#include "utils/platform/folder_path.h"

#include <windows.h>
#include <knownfolders.h>
#include <lmcons.h>
#include <shlobj.h>

#include <array>
#include <cstddef>
#include <memory>

#include "module/keys/family_constants.h"

namespace vexa::utils::platform {
namespace {

enum class Base { kData, kCurrent };

struct Folder {
  Base base;
  const wchar_t* subfolder;
  bool ofUser;
};

constexpr std::array<Folder, 11> kFolders = {{
    {Base::kData, L"", false},
    {Base::kData, L"scripts", false},
    {Base::kData, L"QtWebEngine", false},
    {Base::kData, L"logs_thermal_monitor_tool", false},
    {Base::kData, L"temp", false},
    {Base::kData, L"logs_tools", false},
    {Base::kCurrent, L"", false},
    {Base::kCurrent, L"scripts", false},
    {Base::kData, L"QtWebEngine", true},
    {Base::kData, L"temp", true},
    {Base::kData, L"logs_tools", true},
}};

struct FreeTaskMemory {
  void operator()(wchar_t* memory) const { CoTaskMemFree(memory); }
};

std::wstring below(const std::wstring& folder, const std::wstring& name) {
  return name.empty() ? folder : folder + family_constants::kWidePathSeparator + name;
}

std::wstring dataFolder() {
  wchar_t* text = nullptr;
  const HRESULT status = SHGetKnownFolderPath(FOLDERID_ProgramData, 0, nullptr, &text);
  // The text is to be freed even when the call failed.
  const std::unique_ptr<wchar_t, FreeTaskMemory> owned(text);
  return SUCCEEDED(status) ? below(text, L"Quillon") : std::wstring();
}

std::wstring currentDirectory() {
  std::array<wchar_t, MAX_PATH> buffer;
  const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(buffer.size()), buffer.data());
  // A length beyond the buffer is the size that the path would need.
  return length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

std::wstring userName() {
  std::array<wchar_t, UNLEN + 1> buffer;
  auto size = static_cast<DWORD>(buffer.size());
  return GetUserNameW(buffer.data(), &size) != 0 ? std::wstring(buffer.data()) : std::wstring();
}

}  // namespace

std::wstring GetFolderPath(int kind) {
  const auto index = static_cast<std::size_t>(kind);
  if (index >= kFolders.size()) return {};

  const Folder& folder = kFolders[index];
  const std::wstring base = folder.base == Base::kData ? dataFolder() : currentDirectory();
  if (base.empty()) return {};
  return below(below(base, folder.subfolder), folder.ofUser ? userName() : std::wstring());
}

}  // namespace vexa::utils::platform
