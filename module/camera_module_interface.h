#pragma once

#include "module/module_interface.h"

/// The camera module: its tests need the user.
class CameraModuleInterface : public ModuleInterface {
 public:
  using ModuleInterface::ModuleInterface;
  bool isInteractive() override { return true; }
};
