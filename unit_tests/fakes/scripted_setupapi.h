#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct ScriptedInterface {
  GUID interfaceClass;
  std::wstring path;
  /// The interface's name property.
  std::optional<std::wstring> name;
};

struct ScriptedDevice {
  std::wstring instanceId;
  GUID deviceClass;
  std::vector<ScriptedInterface> interfaces;
  /// SPDRP number to the characters of the value; texts carry their terminating zero.
  std::map<DWORD, std::wstring> properties;
  /// The instance id of the parent; none when it is empty.
  std::wstring parentId;

  /// Sets a text property, its terminating zero included.
  void setText(DWORD property, const std::wstring& text) { properties[property] = text + L'\0'; }
};

/// The devices that SetupAPI and the configuration manager know, and what RegGetValueW finds below HKEY_LOCAL_MACHINE.
struct ScriptedSetupApi {
  std::vector<ScriptedDevice> devices;
  /// Class, zeroes for none, and flags of every opening of a device information set.
  std::vector<std::pair<GUID, DWORD>> openings;
  /// Buffer sizes, in bytes, of the calls that read an interface property.
  std::vector<DWORD> interfacePropertySizes;
  /// Registry key and value name to text.
  std::map<std::pair<std::wstring, std::wstring>, std::wstring> registryTexts;
  /// Buffer sizes, in bytes, of the calls that read a text of the registry.
  std::vector<DWORD> registryTextSizes;
};

ScriptedSetupApi& scriptedSetupApi();
