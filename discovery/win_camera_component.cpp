#include "discovery/win_camera_component.h"

#include "capture/win_camera_frame_capturer.h"
#include "module/host_services.h"
#include "module/keys/camera_keys.h"

WinCameraComponent::WinCameraComponent(const CameraInfo& cameraInfo, std::uint32_t index)
    : CameraComponent(cameraInfo) {
  id = std::to_string(index);
  buildProperties();
  capturer.reset(new WinCameraFrameCapturer(this));
}

WinCameraComponent::~WinCameraComponent() = default;

CameraFrameCapturer* WinCameraComponent::getFrameCapturer() {
  return capturer.get();
}

void WinCameraComponent::ReleaseReference::operator()(WinCameraFrameCapturer* object) const {
  static_cast<IMFSourceReaderCallback*>(object)->Release();
}

void WinCameraComponent::buildProperties() {
  properties.clear();
  name = info.name;

  std::string identifier;
  get_string_handler()->deriveIdentifier(info.name + "_" + id, identifier);

  // The type is named after the prefix of the device path: an internal camera is a "Display" camera to the host.
  const char* type = info.type == CameraType::kUsb ? "USB" : "Display";
  properties.emplace_back(camera_keys::kUdi, identifier);
  properties.emplace_back(camera_keys::kCameraDescription, info.description);
  properties.emplace_back(camera_keys::kCameraManufacturer, info.manufacturer);
  properties.emplace_back(camera_keys::kCameraType, type);
  properties.emplace_back(camera_keys::kCameraHardwareId, info.hardwareId);
  if (!info.driverVersion.empty()) properties.emplace_back(camera_keys::kDriverVersion, info.driverVersion);
}
