#pragma once

#include "standalone/virtual_camera/pictures/picture_source.h"

/// One image for all time, fitted into the frame with its proportions kept and black beside it.
class StillImage final : public PictureSource {
 public:
  StillImage(const QImage& image, QSize size);

  [[nodiscard]] QImage frameAt(quint64, double) override { return frame; }

 private:
  QImage frame;
};
