#include "standalone/services/thread_starter.h"

#include <windows.h>
#include <process.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

struct Start {
  void (*entry)(void*);
  void* argument;
};

unsigned __stdcall threadMain(void* parameter) {
  const std::unique_ptr<Start> start(static_cast<Start*>(parameter));
  start->entry(start->argument);
  return 0;
}

// The name shows in debuggers only: failing to set it is no failure. mingw's headers do not know the function.
void describe(HANDLE thread, const char* name) {
  using SetDescription = HRESULT(WINAPI*)(HANDLE, PCWSTR);
  // Through void*: no two function types can be cast into each other without a warning.
  static const auto setDescription = reinterpret_cast<SetDescription>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetThreadDescription")));
  if (!name || !setDescription) {
    return;
  }
  std::array<wchar_t, 64> wide{};
  if (MultiByteToWideChar(CP_UTF8, 0, name, -1, wide.data(), static_cast<int>(wide.size())) > 0) {
    setDescription(thread, wide.data());
  }
}

HANDLE asHandle(std::uint64_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

}  // namespace

void ThreadStarter::create(std::uint64_t* handle, std::uint64_t, void (*entry)(void*), void* argument,
                           const char* name) {
  *handle = 0;
  auto start = std::make_unique<Start>(Start{entry, argument});
  unsigned threadId = 0;
  // Suspended, so that the thread runs neither unnamed nor before its identifier can be read.
  const auto thread = _beginthreadex(nullptr, 0, &threadMain, start.get(), CREATE_SUSPENDED, &threadId);
  if (thread == 0) {
    return;
  }
  static_cast<void>(start.release());  // threadMain owns it
  describe(asHandle(thread), name);
  *handle = thread;
  lastThreadId = threadId;
  ResumeThread(asHandle(thread));
}

void ThreadStarter::wait(std::uint64_t handle) {
  if (handle == 0) {
    return;
  }
  WaitForSingleObject(asHandle(handle), INFINITE);
  CloseHandle(asHandle(handle));
}

void ThreadStarter::setPriority(std::uint64_t handle, int value) {
  constexpr std::array<int, 5> kPriorities = {THREAD_PRIORITY_LOWEST, THREAD_PRIORITY_BELOW_NORMAL,
                                              THREAD_PRIORITY_NORMAL, THREAD_PRIORITY_ABOVE_NORMAL,
                                              THREAD_PRIORITY_HIGHEST};
  const int step = std::clamp(value, 1, static_cast<int>(kPriorities.size()));
  SetThreadPriority(asHandle(handle), kPriorities[static_cast<std::size_t>(step - 1)]);
}
