#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

/// A volatile key below HKEY_LOCAL_MACHINE. It is gone when the system (or the last Wine program) ends. Every failure
/// throws std::system_error that names the key.
class RegistryKey {
 public:
  /// What becomes of a key that is not there: it is made, with all that leads to it, or that is a failure.
  enum class Missing { kIsMade, kFails };

  explicit RegistryKey(const std::wstring& path, Missing missing = Missing::kIsMade);
  ~RegistryKey() { RegCloseKey(key); }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  void setText(const wchar_t* name, const std::wstring& text);
  void setTexts(const wchar_t* name, const std::vector<std::wstring>& texts);
  void setNumber(const wchar_t* name, DWORD number);

 private:
  void set(const wchar_t* name, DWORD type, const void* data, std::size_t bytes);

  std::wstring path;
  HKEY key = nullptr;
};

/// The texts of a value below HKEY_LOCAL_MACHINE, which holds one or several; none when it is not there.
[[nodiscard]] std::vector<std::wstring> readTexts(const std::wstring& path, const wchar_t* name);

/// The number of a value below HKEY_LOCAL_MACHINE, if it is there.
[[nodiscard]] std::optional<DWORD> readNumber(const std::wstring& path, const wchar_t* name);
