// The smallest host: lists the cameras of this PC with their properties, and the tests that can be run on them.

#include <cstdint>
#include <cstdio>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "module/diagnostic.h"
#include "module/exports.h"
#include "module/module_interface.h"
#include "module/product_version.h"
#include "module/resource.h"
#include "module/test.h"

namespace {

// The module speaks in keys; a host translates them. This one prints them as they are.
void printCamera(SystemComponent& camera) {
  const ComponentDescription description = camera.getDescription();
  std::printf("camera %s: %s\n", camera.getId().c_str(), description.name.c_str());
  for (const auto& [key, value] : description.properties) std::printf("  %s: %s\n", key.c_str(), value.c_str());
}

void printTests(ModuleInterface& module) {
  for (std::uint32_t i = 0; i < module.diagnosticCount(); ++i) {
    Diagnostic& diagnostic = *module.diagnosticAt(i);
    for (std::uint32_t j = 0; j < diagnostic.testCount(); ++j) {
      std::printf("test: %s\n", module.getResource()->testNameKey(diagnostic.testAt(j)->id).c_str());
    }
  }
}

}  // namespace

int main() {
  ProductVersion& version = *GetProductVersion();
  std::printf("product %u.%u.%u.%u\n", version.major(), version.minor(), version.patch(), version.build());

  ModuleInterface& module = *GetModuleInterfaceInstance();
  printTests(module);
  // What the camera module calls its component manager is always one of these.
  auto& manager = static_cast<CameraComponentManager&>(*module.getComponentManager());
  manager.refresh();
  std::printf("cameras: %zu\n", manager.getComponentCount());
  for (std::uint32_t i = 0; i < manager.getComponentCount(); ++i) printCamera(*manager.getComponent(i));
  ReleaseModuleInterfaceInstance();
  return 0;
}
