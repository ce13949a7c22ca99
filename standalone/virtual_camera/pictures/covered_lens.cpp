#include "standalone/virtual_camera/pictures/covered_lens.h"

#include "standalone/virtual_camera/pictures/image_effects.h"

QImage coveredLens(QSize size, quint64 frameNumber) {
  QImage frame(size, QImage::Format_RGB32);
  frame.fill(QColor(14, 9, 8));  // light comes red through a finger
  addNoise(frame, 0.012, static_cast<quint32>(frameNumber));
  return frame;
}
