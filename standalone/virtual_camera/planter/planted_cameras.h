#pragma once

#include <QString>

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"

/// A planted camera, as its description has it now; that its pictures can be read was seen when it was planted.
struct PlantedCamera {
  CameraDescription description;
  QString symbolicLink;
};

/// The cameras that are planted, in the order of their description; none when nothing is planted. Either `error` is
/// empty, or it is one sentence that says why the description cannot be read any more, and there are no cameras.
struct PlantedCameras {
  std::vector<PlantedCamera> cameras;
  QString error;
};

[[nodiscard]] PlantedCameras plantedCameras();
