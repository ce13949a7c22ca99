#pragma once

#include <cstdint>
#include <memory>

#include "discovery/camera_component.h"

class WinCameraFrameCapturer;

/// A camera of this machine with its properties and its frame capturer. Does not change after construction.
class WinCameraComponent : public CameraComponent {
 public:
  /// `index` is the component's place in its manager's list.
  WinCameraComponent(const CameraInfo& cameraInfo, std::uint32_t index);
  ~WinCameraComponent() override;
  WinCameraComponent(const WinCameraComponent&) = delete;
  WinCameraComponent& operator=(const WinCameraComponent&) = delete;

  CameraFrameCapturer* getFrameCapturer() override;

 private:
  /// The capturer is a COM object: Media Foundation may hold references to it beyond the component's own.
  struct ReleaseReference {
    void operator()(WinCameraFrameCapturer* object) const;
  };

  void buildProperties();

  std::unique_ptr<WinCameraFrameCapturer, ReleaseReference> capturer;
};
