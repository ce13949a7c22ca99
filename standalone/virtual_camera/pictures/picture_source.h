#pragma once

#include <QImage>
#include <QSize>

#include <memory>

#include "standalone/virtual_camera/description/camera_description.h"

/// What a camera looks at, frame by frame. Used by one thread at a time.
class PictureSource {
 public:
  virtual ~PictureSource() = default;

  /// The picture in QImage::Format_RGB32, of the size that the source was made for. `seconds` is the time since the
  /// start; the same arguments give the same picture.
  [[nodiscard]] virtual QImage frameAt(quint64 frameNumber, double seconds) = 0;
};

/// Makes the source of a described picture; every picture of it has the given size.
[[nodiscard]] std::unique_ptr<PictureSource> makePictureSource(const PictureDescription& picture, QSize size);
