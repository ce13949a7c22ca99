#pragma once

#include <QDir>

#include "standalone/virtual_camera/description/camera_description.h"
#include "standalone/virtual_camera/description/json_object_reader.h"

/// The files of a description's pictures.
struct PictureFiles {
  QDir folder;                    ///< where they are looked for
  bool areProbed = false;         ///< whether one that is no image is a mistake
  bool codesMustBeDrawn = false;  ///< whether a code without an image is a mistake
};

/// Reads what a camera looks at. Throws JsonContentError.
[[nodiscard]] PictureDescription readPicture(const JsonObjectReader& reader, const PictureFiles& files);
