#pragma once

#include "module/host_services.h"

/// Loads libraries of the system, from its own folder alone: none that lies in the current folder takes their place.
/// Holds no state.
class ModuleLoader : public ModuleService {
 public:
  /// `mode` has no meaning here: there is one way to load a library.
  void* load(const char* fileName, int mode) override;
  void unused3() override {}
  void unload(void* library) override;
};
