#pragma once

#include <QString>

#include <span>

#include "standalone/virtual_camera/description/camera_description.h"

/// Writes cameras into the registry where Wine's SetupAPI finds devices, in volatile keys, in place of those that were
/// planted before, and plugs them in. `descriptionPath` is the absolute path of their description, from which Media
/// Foundation's part opens them. Returns an empty text, or one sentence about what failed; then nothing is planted.
[[nodiscard]] QString plantCameras(std::span<const CameraDescription> cameras, const QString& descriptionPath);

/// Unplugs and removes what was planted; harmless when nothing is. Returns as plantCameras does.
[[nodiscard]] QString unplantCameras();
