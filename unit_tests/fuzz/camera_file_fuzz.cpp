// Descriptions of virtual cameras: cameras or one sentence, and each camera that is taken can run.

#include <QString>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/description/stream_state.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "unit_tests/fuzz/fuzzer.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CameraFile file =
      parseCameraFile(inputBytes(data, size), QStringLiteral("/nowhere/cameras.json"), FileCheck::kImages);
  require(file.error.isEmpty() || (file.cameras.empty() && file.error.endsWith(u'.')), "cameras or a sentence");
  for (const CameraDescription& camera : file.cameras) {
    for (const double seconds : {0.0, 0.5, 1e3, 1e9}) {
      const StreamState state = streamStateAt(camera.faults, static_cast<quint64>(seconds * 30), seconds);
      require(state.share >= 0 && state.share <= 1, "a buffer holds a share of a frame");
    }
    const QSize small(32, 24);
    const QImage frame = makePictureSource(camera.picture, small)->frameAt(1, 0.5);
    require(frame.size() == small && frame.format() == QImage::Format_RGB32, "a camera shows its picture");
  }
  return 0;
}
