#include "standalone/virtual_camera/pictures/yuv_frame.h"

#include <algorithm>

namespace {

// A weighted sum of a pixel's colours, in 256ths.
char weighted(QRgb pixel, int red, int green, int blue, int base) {
  return static_cast<char>(((red * qRed(pixel) + green * qGreen(pixel) + blue * qBlue(pixel) + 128) >> 8) + base);
}

char brightness(QRgb pixel) {
  return weighted(pixel, 66, 129, 25, 16);
}
char blueness(QRgb pixel) {
  return weighted(pixel, -38, -74, 112, 128);
}
char redness(QRgb pixel) {
  return weighted(pixel, 112, -94, -18, 128);
}

}  // namespace

QByteArray yuvFrame(const QImage& image, PixelFormat format) {
  const int row = yuvRow(image.width());
  QByteArray brightnesses;
  QByteArray colours;
  for (int y = 0; y < image.height(); ++y) {
    const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < row; ++x) {
      const QRgb pixel = pixels[std::min(x, image.width() - 1)];
      brightnesses += brightness(pixel);
      if (format == PixelFormat::kYuy2) {
        brightnesses += x % 2 == 0 ? blueness(pixel) : redness(pixels[x - 1]);
      } else if (x % 2 == 0 && y % 2 == 0) {
        colours += blueness(pixel);
        colours += redness(pixel);
      }
    }
  }
  return brightnesses + colours;
}
