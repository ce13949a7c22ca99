#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

/// What RegGetValueW finds below HKEY_LOCAL_MACHINE.
struct ScriptedRegistry {
  /// Key and value name to text.
  std::map<std::pair<std::wstring, std::wstring>, std::wstring> texts;
  /// The buffer sizes, in bytes, of the calls that read a text.
  std::vector<DWORD> bufferSizes;
};

ScriptedRegistry& scriptedRegistry();
