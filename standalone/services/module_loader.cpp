#include "standalone/services/module_loader.h"

#include <windows.h>

void* ModuleLoader::load(const char* fileName, int /*mode*/) {
  return !fileName ? nullptr : LoadLibraryA(fileName);
}

void ModuleLoader::unload(void* library) {
  if (library) {
    FreeLibrary(static_cast<HMODULE>(library));
  }
}
