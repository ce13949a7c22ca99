#pragma once

#include <QString>

#include <vector>

#include "standalone/virtual_camera/planter/planted_cameras.h"

/// Which camera somebody means. Either `error` is empty, or it is one sentence that names the cameras there are.
struct CameraChoice {
  std::size_t position = 0;
  QString error;
};

/// Finds the camera of a position that is written as a number, or else of a name, upper and lower case being the same.
/// A name that several cameras have, or that is the number of another, needs the number.
[[nodiscard]] CameraChoice chooseCamera(const std::vector<PlantedCamera>& cameras, const QString& name);
