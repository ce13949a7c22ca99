#pragma once

#include <cstdint>
#include <vector>

#include "discovery/camera_info.h"

/// Finds the cameras of the machine. Not thread-safe; every operation runs on the caller's thread.
class CameraScanner {
 public:
  virtual ~CameraScanner() = default;

  /// Replaces the cameras by those that are present now. 0 when at least one search succeeded, even if it found
  /// nothing; else 1, and there are no cameras.
  [[nodiscard]] virtual std::uint32_t scan() = 0;
  /// Whether the system has any video capture source at the moment, whatever it is attached to. A full scan may still
  /// find no camera.
  virtual bool hasCameras() = 0;
  /// Forgets the cameras. Always returns 0.
  [[nodiscard]] virtual std::uint32_t clear() = 0;
  virtual std::vector<CameraInfo> getCameras() = 0;
};
