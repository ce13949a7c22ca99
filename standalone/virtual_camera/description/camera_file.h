#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"

/// A camera description file as read. Either `error` is empty, or it is one sentence that says what is wrong, where,
/// and what is allowed, and there are no cameras.
struct CameraFile {
  std::vector<CameraDescription> cameras;
  QString error;
};

/// Whether the barcodes of a description must have been drawn: they must for being shown, not for a check.
enum class Codes { kDrawn, kDrawnOrNot };

/// Reads a camera description file (JSON).
[[nodiscard]] CameraFile readCameraFile(const QString& path, Codes codes = Codes::kDrawn);

/// Reads the text of a camera description. `path` is named in the error sentence, and relative picture files are looked
/// for beside it.
[[nodiscard]] CameraFile parseCameraFile(const QByteArray& json, const QString& path, Codes codes = Codes::kDrawn);
