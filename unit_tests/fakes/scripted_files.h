#pragma once

#include <string>
#include <vector>

#include <windows.h>

/// DOS device names and the devices that CreateFileW opens. CreateFileW and CloseHandle are scripted only for device
/// paths ("\\.\"); DeviceIoControl and QueryDosDeviceW always.
struct ScriptedFiles {
  std::vector<std::wstring> dosDevices;
  /// The buffer sizes, in characters, of the calls of QueryDosDeviceW.
  std::vector<DWORD> dosDeviceSizes;
  std::wstring openedPath;
  std::vector<DWORD> controlCodes;
};

ScriptedFiles& scriptedFiles();
