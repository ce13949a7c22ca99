#include "standalone/services/module_loader.h"

#include <windows.h>

void* ModuleLoader::load(const char* fileName, int /*mode*/) {
  return !fileName ? nullptr : LoadLibraryExA(fileName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

void ModuleLoader::unload(void* library) {
  if (library) FreeLibrary(static_cast<HMODULE>(library));
}
