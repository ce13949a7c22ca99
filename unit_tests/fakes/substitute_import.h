#pragma once

#include <windows.h>

/// Puts `replacement` in the place of a function that the product imports from a DLL, for the whole program.
#define SUBSTITUTE_IMPORT(function, replacement) decltype(&function) __imp_##function = replacement

/// The system's own function behind one that is replaced.
#define SYSTEM_FUNCTION(library, function) \
  reinterpret_cast<decltype(&function)>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), #function)))
