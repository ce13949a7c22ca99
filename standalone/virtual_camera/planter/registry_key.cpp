#include "standalone/virtual_camera/planter/registry_key.h"

#include <QString>

#include <system_error>

namespace {

void check(LSTATUS status, const std::wstring& path) {
  if (status == ERROR_SUCCESS) return;
  throw std::system_error(static_cast<int>(status), std::system_category(),
                          "the registry key HKLM\\" + QString::fromStdWString(path).toStdString());
}

}  // namespace

RegistryKey::RegistryKey(const std::wstring& keyPath, Missing missing) : path(keyPath) {
  if (missing == Missing::kFails) {
    check(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_WRITE, &key), path);
    return;
  }
  check(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &key,
                        nullptr),
        path);
}

void RegistryKey::setText(const wchar_t* name, const std::wstring& text) {
  set(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

void RegistryKey::setTexts(const wchar_t* name, const std::vector<std::wstring>& texts) {
  std::wstring list;
  for (const std::wstring& text : texts) list += text + L'\0';
  set(name, REG_MULTI_SZ, list.c_str(), (list.size() + 1) * sizeof(wchar_t));
}

void RegistryKey::setNumber(const wchar_t* name, DWORD number) {
  set(name, REG_DWORD, &number, sizeof number);
}

void RegistryKey::set(const wchar_t* name, DWORD type, const void* data, std::size_t bytes) {
  check(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes)), path);
}

std::vector<std::wstring> readTexts(const std::wstring& path, const wchar_t* name) {
  constexpr DWORD kTexts = RRF_RT_REG_SZ | RRF_RT_REG_MULTI_SZ;
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_LOCAL_MACHINE, path.c_str(), name, kTexts, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
    return {};
  }
  // Two zeros end a list, also one that is a single text.
  std::vector<wchar_t> list(bytes / sizeof(wchar_t) + 2);
  bytes = static_cast<DWORD>((list.size() - 1) * sizeof(wchar_t));
  if (RegGetValueW(HKEY_LOCAL_MACHINE, path.c_str(), name, kTexts, nullptr, list.data(), &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<std::wstring> texts;
  for (const wchar_t* text = list.data(); *text; text += texts.back().size() + 1) texts.emplace_back(text);
  return texts;
}

std::optional<DWORD> readNumber(const std::wstring& path, const wchar_t* name) {
  DWORD number = 0;
  DWORD bytes = sizeof number;
  const LSTATUS status =
      RegGetValueW(HKEY_LOCAL_MACHINE, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &number, &bytes);
  return status == ERROR_SUCCESS ? std::optional(number) : std::nullopt;
}
