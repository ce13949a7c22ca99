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

/// What is asked of the files that a description names: that images can be read and barcodes were drawn, as for being
/// shown; that images can be read; or nothing, as once the cameras are planted.
enum class FileCheck { kAll, kImages, kNone };

/// Reads a camera description file (JSON).
[[nodiscard]] CameraFile readCameraFile(const QString& path, FileCheck check = FileCheck::kAll);

/// Reads the text of a camera description. `path` is named in the error sentence, and relative picture files are looked
/// for beside it.
[[nodiscard]] CameraFile parseCameraFile(const QByteArray& json, const QString& path,
                                         FileCheck check = FileCheck::kAll);
