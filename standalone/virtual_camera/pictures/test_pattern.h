#pragma once

#include <array>

#include "standalone/virtual_camera/pictures/picture_source.h"

/// A test chart over a landscape at dusk: grid and circle for geometry, a star and line gratings for sharpness, colour
/// bars, a grey ramp and a hue ramp, a light that goes round the circle once in four seconds, and a clock (minutes,
/// seconds, hundredths). Each corner of the frame is a block of a fixed colour, so that a reader can check pixels and
/// tell whether rows or columns are turned round. Text is drawn without fonts: it works before a QGuiApplication is
/// made.
class TestPattern final : public PictureSource {
 public:
  struct Corners {
    QRgb topLeft;
    QRgb topRight;
    QRgb bottomLeft;
    QRgb bottomRight;
  };

  /// The side of a corner block in pixels.
  static constexpr int kCornerSide = 16;
  static constexpr Corners kCorners{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFF00};

  explicit TestPattern(QSize size);

  [[nodiscard]] QImage frameAt(quint64 frameNumber, double seconds) override;

 private:
  QImage background;
};
