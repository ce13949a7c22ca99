#include "standalone/virtual_camera/media_source/removal_broadcast.h"

#include <windows.h>
#include <dbt.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr GUID kVideoCameraInterface{0xe5323777, 0xf976, 0x4f5b, {0x9b, 0x55, 0xb9, 0x46, 0x99, 0xc4, 0x6e, 0x44}};
constexpr UINT kLongestAnswer = 1000;  // milliseconds for one window

// DEV_BROADCAST_DEVICEINTERFACE_W with its name behind it.
using Broadcast = std::vector<std::byte>;

Broadcast makeBroadcast(const std::wstring& symbolicLink) {
  const std::size_t nameBytes = (symbolicLink.size() + 1) * sizeof(wchar_t);
  Broadcast bytes(offsetof(DEV_BROADCAST_DEVICEINTERFACE_W, dbcc_name) + nameBytes);
  DEV_BROADCAST_DEVICEINTERFACE_W header{};
  header.dbcc_size = static_cast<DWORD>(bytes.size());
  header.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  header.dbcc_classguid = kVideoCameraInterface;
  std::memcpy(bytes.data(), &header, offsetof(DEV_BROADCAST_DEVICEINTERFACE_W, dbcc_name));
  std::memcpy(bytes.data() + offsetof(DEV_BROADCAST_DEVICEINTERFACE_W, dbcc_name), symbolicLink.c_str(), nameBytes);
  return bytes;
}

void addIfOurs(HWND window, std::vector<HWND>& windows) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == GetCurrentProcessId()) windows.push_back(window);
}

std::vector<HWND> windowsOfThisProcess() {
  std::vector<HWND> windows;
  EnumWindows(
      [](HWND window, LPARAM list) -> BOOL {
        addIfOurs(window, *reinterpret_cast<std::vector<HWND>*>(list));
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));) {
    addIfOurs(window, windows);
  }
  return windows;
}

void send(std::unique_ptr<Broadcast> broadcast) {
  bool allAnswered = true;
  for (HWND window : windowsOfThisProcess()) {
    DWORD_PTR answer = 0;
    const auto payload = reinterpret_cast<LPARAM>(broadcast->data());
    if (!SendMessageTimeoutW(window, WM_DEVICECHANGE, DBT_DEVICEREMOVECOMPLETE, payload, SMTO_NORMAL, kLongestAnswer,
                             &answer)) {
      allAnswered = false;
    }
  }
  // A window that is late may still read the broadcast: then it is never freed.
  if (!allAnswered) static_cast<void>(broadcast.release());
}

struct Errand {
  HMODULE module;
  std::unique_ptr<Broadcast> broadcast;
};

DWORD WINAPI run(void* argument) {
  HMODULE module = nullptr;
  {
    const std::unique_ptr<Errand> errand(static_cast<Errand*>(argument));
    module = errand->module;
    send(std::move(errand->broadcast));
  }
  FreeLibraryAndExitThread(module, 0);
}

}  // namespace

void broadcastRemoval(const std::wstring& symbolicLink) {
  auto errand = std::make_unique<Errand>();
  // The thread holds its own code: the DLL may be unloaded meanwhile.
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&run), &errand->module)) {
    return;
  }
  errand->broadcast = std::make_unique<Broadcast>(makeBroadcast(symbolicLink));
  const HANDLE thread = CreateThread(nullptr, 0, run, errand.get(), 0, nullptr);
  if (!thread) {
    FreeLibrary(errand->module);
    return;
  }
  static_cast<void>(errand.release());
  CloseHandle(thread);
}
