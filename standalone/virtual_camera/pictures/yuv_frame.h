#pragma once

#include <QByteArray>
#include <QImage>

#include "standalone/virtual_camera/description/camera_description.h"

/// The pixels that a row of this width holds in YUY2 and NV12, which keep colours by pairs.
constexpr int yuvRow(int width) {
  return width + width % 2;
}

/// `image` (Format_RGB32) as YUY2 or NV12: brightness 16 to 235 and colour differences around 128 by BT.601, rows from
/// top to bottom. The colour of a pair, or of 2x2 pixels, is that of the first one.
QByteArray yuvFrame(const QImage& image, PixelFormat format);
