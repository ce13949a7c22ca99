#include "unit_tests/fakes/scripted_files.h"

#include "unit_tests/fakes/system_script.h"

namespace {

constexpr char HandleKind[] = "device handle";

/// The one scripted handle, and whether it is open.
bool open = false;
HANDLE deviceHandle() {
  return &open;
}

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

DWORD WINAPI queryDosDevice(LPCWSTR name, LPWSTR buffer, DWORD size) {
  scriptedFiles().dosDeviceSizes.push_back(size);
  if (systemScript().fails("QueryDosDeviceW") || name != nullptr) {
    SetLastError(ERROR_ACCESS_DENIED);
    return 0;
  }
  std::wstring list;
  for (const std::wstring& device : scriptedFiles().dosDevices) list += device + L'\0';
  list += L'\0';
  if (list.size() > size) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  return static_cast<DWORD>(list.copy(buffer, list.size()));
}

HANDLE WINAPI createFile(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                         DWORD flags, HANDLE other) {
  if (!std::wstring(path).starts_with(L"\\\\.\\")) {
    return real<decltype(&CreateFileW)>("CreateFileW")(path, access, share, security, disposition, flags, other);
  }
  scriptedFiles().openedPath = path;
  if (systemScript().fails("CreateFileW") || access != 0xC0000000 || share != 3 || security != nullptr ||
      disposition != 3 || flags != 0x40000000) {
    SetLastError(ERROR_SHARING_VIOLATION);
    return INVALID_HANDLE_VALUE;
  }
  open = true;
  systemScript().acquire(HandleKind);
  return deviceHandle();
}

BOOL WINAPI closeHandle(HANDLE handle) {
  if (handle != deviceHandle()) return real<decltype(&CloseHandle)>("CloseHandle")(handle);
  if (!open) return FALSE;
  open = false;
  systemScript().release(HandleKind);
  return TRUE;
}

BOOL WINAPI deviceIoControl(HANDLE handle, DWORD code, LPVOID in, DWORD inSize, LPVOID out, DWORD outSize, LPDWORD,
                            LPOVERLAPPED) {
  scriptedFiles().controlCodes.push_back(code);
  const bool noBuffers = in == nullptr && inSize == 0 && out == nullptr && outSize == 0;
  return !systemScript().fails("DeviceIoControl") && handle == deviceHandle() && open && noBuffers;
}

}  // namespace

SUBSTITUTE_IMPORT(QueryDosDeviceW, queryDosDevice);
SUBSTITUTE_IMPORT(CreateFileW, createFile);
SUBSTITUTE_IMPORT(CloseHandle, closeHandle);
SUBSTITUTE_IMPORT(DeviceIoControl, deviceIoControl);

ScriptedFiles& scriptedFiles() {
  static ScriptedFiles files;
  return files;
}
