#include "unit_tests/fakes/process_figures.h"

#include <windows.h>
#include <psapi.h>
#include <tlhelp32.h>

#include <cstdint>

namespace {

/// How many of the values that a handle can have are one.
template <class Handle, class Test>
long long countValid(std::uintptr_t first, std::uintptr_t step, Test isValid) {
  long long count = 0;
  for (std::uintptr_t value = first; value < 0x10000; value += step)
    count += isValid(reinterpret_cast<Handle>(value)) ? 1 : 0;
  return count;
}

long long countHandles() {
  DWORD flags = 0;
  return countValid<HANDLE>(4, 4, [&](HANDLE handle) { return GetHandleInformation(handle, &flags); });
}

long long countThreads() {
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  long long count = 0;
  for (BOOL more = Thread32First(all, &thread); more; more = Thread32Next(all, &thread))
    count += thread.th32OwnerProcessID == GetCurrentProcessId();
  CloseHandle(all);
  return count;
}

}  // namespace

ProcessFigures processFigures() {
  const HANDLE process = GetCurrentProcess();
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessMemoryInfo(process, &memory, sizeof memory);
  DWORD handles = 0;
  GetProcessHandleCount(process, &handles);
  const DWORD gdiObjects = GetGuiResources(process, GR_GDIOBJECTS);
  const DWORD userObjects = GetGuiResources(process, GR_USEROBJECTS);
  // Wine takes the low half of a handle for all of it; the windows are anybody's.
  return {static_cast<long long>(memory.PagefileUsage / 1024), handles ? handles : countHandles(),
          gdiObjects ? gdiObjects : countValid<HGDIOBJ>(1, 1, GetObjectType),
          userObjects ? userObjects : countValid<HWND>(2, 2, IsWindow), countThreads()};
}
