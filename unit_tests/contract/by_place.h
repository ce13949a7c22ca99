#pragma once

// Calls a virtual operation by its place in the object's table, as a host does that has only the table.

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

/// Any function; every entry of a table is cast to what it is.
using Entry = void (*)();

/// What every object of the module and of the host begins with.
struct Object {
  const Entry* table;
};

/// Place 1 is the destructor, which takes the entries 0 and 1 of this compiler's tables; place n is entry n.
template <class Result, class... Arguments>
Result call(void* object, std::size_t place, Arguments... arguments) {
  const Entry entry = static_cast<Object*>(object)->table[place];
  return reinterpret_cast<Result (*)(void*, Arguments...)>(entry)(object, arguments...);
}

/// The field of type `Field` that begins `offset` bytes behind the start of the object.
template <class Field>
Field& fieldAt(void* object, std::size_t offset) {
  return *reinterpret_cast<Field*>(static_cast<std::byte*>(object) + offset);
}

/// The identifier record, which is passed by value and keys the maps.
struct Identifier {
  std::uint16_t module;
  std::uint32_t diagnostic;
  std::uint32_t test;
  std::uint64_t key;

  bool operator<(const Identifier& other) const { return key < other.key; }
  bool operator==(const Identifier&) const = default;
};

inline constexpr Identifier kModule{17, 0, 0, 0x11000000000000};
inline constexpr Identifier kDiagnostic{17, 1, 0, 0x11000001000000};
inline constexpr Identifier kCapture{17, 1, 1, 0x11000001000001};
inline constexpr Identifier kBarcode{17, 1, 2, 0x11000001000002};

/// The module's DLL, loaded from where it lies, with the libraries that lie beside it.
class LoadedModule {
 public:
  LoadedModule();
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  void* instance() { return function<void*()>("GetModuleInterfaceInstance")(); }
  void release() { function<void()>("ReleaseModuleInterfaceInstance")(); }
  void* productVersion() { return function<void*()>("GetProductVersion")(); }

  void* diagnostic() { return call<void*>(instance(), 2, std::uint32_t{0}); }
  void* test(std::uint32_t index) { return call<void*>(diagnostic(), 4, index); }

  static std::wstring path();

 private:
  template <class Function>
  Function* function(const char* name) {
    const FARPROC address = GetProcAddress(library, name);
    if (!address) throw std::runtime_error(std::string("the module exports no ") + name);
    return reinterpret_cast<Function*>(reinterpret_cast<Entry>(address));
  }

  HMODULE library;
};
