#include "standalone/services/module_loader.h"

#include <windows.h>

void* ModuleLoader::load(const char* fileName, int /*mode*/) {
  return fileName == nullptr ? nullptr : LoadLibraryA(fileName);
}

void ModuleLoader::unload(void* library) {
  if (library != nullptr) {
    FreeLibrary(static_cast<HMODULE>(library));
  }
}
