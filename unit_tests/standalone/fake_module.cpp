#include "unit_tests/standalone/fake_module.h"

// The real ones look for Windows' cameras.
bool CameraComponentManager::hasComponents() {
  return false;
}
SystemComponent* CameraComponentManager::componentAt(std::uint32_t) {
  return nullptr;
}
void CameraComponentManager::refresh() {}
