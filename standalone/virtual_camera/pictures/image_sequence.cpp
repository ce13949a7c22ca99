#include "standalone/virtual_camera/pictures/image_sequence.h"

#include <cmath>

QImage ImageSequence::frameAt(quint64 frameNumber, double seconds) {
  const auto due = static_cast<qsizetype>(std::floor(seconds / sequence.seconds)) % sequence.files.size();
  if (!shown || due != position) {
    shown.emplace(QImage(sequence.files[due]), frameSize);
    position = due;
  }
  return shown->frameAt(frameNumber, seconds);
}
