#pragma once

#include <QDir>

#include "standalone/virtual_camera/description/camera_description.h"
#include "standalone/virtual_camera/description/json_object_reader.h"

/// Reads what a camera looks at; image files are looked for in `folder`. Throws JsonContentError.
[[nodiscard]] PictureDescription readPicture(const JsonObjectReader& reader, const QDir& folder);
