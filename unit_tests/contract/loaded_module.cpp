#include <filesystem>
#include <stdexcept>

#include "by_place.h"

std::wstring LoadedModule::path() {
  return std::filesystem::absolute(MODULE).make_preferred().wstring();
}

LoadedModule::LoadedModule() : library(LoadLibraryExW(path().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
  if (!library) throw std::runtime_error("the module could not be loaded: " + std::to_string(GetLastError()));
}

LoadedModule::~LoadedModule() {
  release();
  FreeLibrary(library);
}
