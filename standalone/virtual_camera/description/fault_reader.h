#pragma once

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"
#include "standalone/virtual_camera/description/json_object_reader.h"

/// Reads the width and the height of frames. Throws JsonContentError.
[[nodiscard]] QSize readFrameSize(const JsonObjectReader& reader);

/// Reads the faults of a camera, in order of time. Throws JsonContentError.
[[nodiscard]] std::vector<Fault> readFaults(const JsonObjectReader& camera);
