#pragma once

#include <optional>

#include "standalone/virtual_camera/pictures/picture_source.h"
#include "standalone/virtual_camera/pictures/still_image.h"

/// Image files one after the other, each for the same time, again and again. Only the one that is shown is in memory;
/// the first frame of each takes as long as reading its file does.
class ImageSequence final : public PictureSource {
 public:
  ImageSequence(const ImageSequencePicture& picture, QSize size) : sequence(picture), frameSize(size) {}

  [[nodiscard]] QImage frameAt(quint64 frameNumber, double seconds) override;

 private:
  ImageSequencePicture sequence;
  QSize frameSize;
  qsizetype position = 0;  // of the image that is shown
  std::optional<StillImage> shown;
};
