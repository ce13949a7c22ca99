#include "standalone/virtual_camera/pictures/image_sequence.h"

#include <cmath>

QImage ImageSequence::frameAt(quint64 frameNumber, double seconds) {
  // Times of frames are sums: one that falls on a change may lie a little before it.
  constexpr double kSlack = 1e-6;
  const auto due = static_cast<qsizetype>(std::floor(seconds / sequence.seconds + kSlack)) % sequence.files.size();
  if (!shown || due != position) {
    shown.emplace(QImage(sequence.files[due]), frameSize);
    position = due;
  }
  return shown->frameAt(frameNumber, seconds);
}
