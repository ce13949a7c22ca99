#include "discovery/camera_component_manager.h"

#include <stdexcept>

#include "discovery/win_camera_component.h"
#include "discovery/win_camera_scanner.h"

namespace {

/// The process has one scanner, made on first use.
CameraScanner& cameraScanner() {
  static WinCameraScanner scanner;
  return scanner;
}

}  // namespace

bool CameraComponentManager::hasComponents() {
  return cameraScanner().hasCameras();
}

SystemComponent* CameraComponentManager::componentAt(std::uint32_t index) {
  if (index < components.size()) return components[index];
  // Deliberate: only the index just past the end is an exception. That, and its text, is required.
  if (index == components.size()) throw std::out_of_range("invalid vector subscript");
  return nullptr;
}

void CameraComponentManager::refresh() {
  CameraScanner& scanner = cameraScanner();
  if (scanner.scan() != 0) return;

  for (const SystemComponent* component : components) delete component;
  components.clear();

  const std::vector<CameraInfo> cameras = scanner.getCameras();
  components.reserve(cameras.size());
  for (std::uint32_t index = 0; index < cameras.size(); ++index) {
    components.push_back(new WinCameraComponent(cameras[index], index));
  }
}
