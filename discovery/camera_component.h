#pragma once

#include "discovery/camera_info.h"
#include "discovery/system_component.h"

class CameraFrameCapturer;

/// A camera as the host and the tests see it.
class CameraComponent : public SystemComponent {
 public:
  explicit CameraComponent(const CameraInfo& cameraInfo) : info(cameraInfo) {}
  ~CameraComponent() override = default;

  void* hostObjectAtPlace5() override { return nullptr; }

  // The host's hooks for other kinds of component: fixed answers.
  virtual bool hostFlagAtPlace6() { return true; }
  virtual bool hostFlagAtPlace7() { return true; }
  virtual void hostHookAtPlace8() {}
  virtual bool hostFlagAtPlace9() { return true; }
  virtual void hostHookAtPlace10() {}
  virtual void hostHookAtPlace11() {}

  /// The capturer through which tests read pictures. The component keeps it.
  virtual CameraFrameCapturer* getFrameCapturer() = 0;

  CameraInfo getCameraInfo() const { return info; }

 protected:
  CameraInfo info;
};
