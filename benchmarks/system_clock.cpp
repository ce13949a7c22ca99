#include "benchmarks/system_clock.h"

#include <windows.h>
#include <setupapi.h>
#include <mfapi.h>
#include <mfidl.h>
#include <objbase.h>

#include <cstring>
#include <utility>

#include "benchmarks/durations.h"

namespace {

double spent = 0;

class Span {
 public:
  ~Span() { spent += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count(); }

 private:
  const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// Stands in for the function of this number.
template <int Number, class Result, class... Arguments>
struct Clocked {
  static Result WINAPI call(Arguments... arguments) {
    const Span span;
    return original(arguments...);
  }
  static inline Result(WINAPI* original)(Arguments...) = nullptr;
};

struct Import {
  const char* name;
  void* clocked;
  /// Where the function itself is kept while it is clocked.
  void** original;
};

template <int Number, class Result, class... Arguments>
Import clocked(const char* name, Result(WINAPI*)(Arguments...)) {
  using Function = Clocked<Number, Result, Arguments...>;
  return {name, reinterpret_cast<void*>(&Function::call), reinterpret_cast<void**>(&Function::original)};
}

const Import kImports[] = {
    clocked<0>("CoInitializeEx", CoInitializeEx),
    clocked<1>("CoUninitialize", CoUninitialize),
    clocked<2>("MFStartup", MFStartup),
    clocked<3>("MFShutdown", MFShutdown),
    clocked<4>("MFEnumDeviceSources", MFEnumDeviceSources),
    clocked<5>("RegGetValueW", RegGetValueW),
    clocked<6>("SetupDiGetClassDevsW", SetupDiGetClassDevsW),
    clocked<7>("SetupDiDestroyDeviceInfoList", SetupDiDestroyDeviceInfoList),
    clocked<8>("SetupDiEnumDeviceInfo", SetupDiEnumDeviceInfo),
    clocked<9>("SetupDiEnumDeviceInterfaces", SetupDiEnumDeviceInterfaces),
    clocked<10>("SetupDiGetDeviceInstanceIdW", SetupDiGetDeviceInstanceIdW),
    clocked<11>("SetupDiGetDeviceInterfaceDetailW", SetupDiGetDeviceInterfaceDetailW),
    clocked<12>("SetupDiGetDeviceRegistryPropertyW", SetupDiGetDeviceRegistryPropertyW),
};

/// A structure at an address that the program's own image names.
template <class Structure>
Structure* inProgram(std::size_t address) {
  return reinterpret_cast<Structure*>(reinterpret_cast<char*>(GetModuleHandleW(nullptr)) + address);
}

void write(ULONGLONG& slot, void* function) {
  DWORD protection = 0;
  VirtualProtect(&slot, sizeof(slot), PAGE_READWRITE, &protection);
  slot = reinterpret_cast<ULONGLONG>(function);
  VirtualProtect(&slot, sizeof(slot), protection, &protection);
}

/// Calls `change` with each clocked import and its place in the program's table of imports.
void forEachImport(void (*change)(const Import& import, ULONGLONG& slot)) {
  const auto* const dos = inProgram<IMAGE_DOS_HEADER>(0);
  const auto* const headers = inProgram<IMAGE_NT_HEADERS>(static_cast<std::size_t>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (auto* library = inProgram<IMAGE_IMPORT_DESCRIPTOR>(directory.VirtualAddress); library->Name != 0; ++library) {
    auto* name = inProgram<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
    for (auto* slot = inProgram<IMAGE_THUNK_DATA>(library->FirstThunk); slot->u1.Function != 0; ++slot, ++name) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* const imported =
          reinterpret_cast<const char*>(inProgram<IMAGE_IMPORT_BY_NAME>(name->u1.AddressOfData)->Name);
      for (const Import& import : kImports) {
        if (std::strcmp(imported, import.name) == 0) change(import, slot->u1.Function);
      }
    }
  }
}

}  // namespace

SystemClock::SystemClock() {
  forEachImport([](const Import& import, ULONGLONG& slot) {
    *import.original = reinterpret_cast<void*>(slot);
    write(slot, import.clocked);
  });
}

SystemClock::~SystemClock() {
  forEachImport([](const Import& import, ULONGLONG& slot) { write(slot, *import.original); });
}

double SystemClock::takeMilliseconds() {
  return std::exchange(spent, 0);
}
