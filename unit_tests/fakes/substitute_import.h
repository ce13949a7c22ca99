#pragma once

#include <windows.h>

/// Begins the definition of a function that takes the place, for the whole program, of one that the product imports
/// from a DLL: its result, its name and its parameters.
#define SUBSTITUTE_IMPORT(Result, function, parameters)           \
  static Result WINAPI substituteFor##function parameters;        \
  decltype(&function) __imp_##function = substituteFor##function; \
  static Result WINAPI substituteFor##function parameters

/// The system's own function behind one that is replaced.
#define SYSTEM_FUNCTION(library, function) \
  reinterpret_cast<decltype(&function)>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), #function)))
