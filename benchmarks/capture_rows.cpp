#include <cstring>
#include <future>
#include <memory>
#include <stdexcept>

#include "benchmarks/bare_reader.h"
#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/planting.h"
#include "benchmarks/rows.h"
#include "capture/buffer_lock.h"
#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"

namespace {

constexpr int kRounds = 31;

/// What starting and stopping a camera took, time by time.
struct StartsAndStops {
  Rounds starts;
  Rounds stops;
};

void runModule(CameraFrameCapturer& capturer, StartsAndStops& taken) {
  taken.starts.push_back(millisecondsOf([&] {
    std::uint8_t* frame = nullptr;
    if (capturer.start() != CaptureOk || capturer.getFrame(frame, 5000) != CaptureOk) {
      throw std::runtime_error("the camera gives the module no frame");
    }
    delete[] frame;
  }));
  taken.stops.push_back(millisecondsOf([&] { static_cast<void>(capturer.stop()); }));
}

std::unique_ptr<std::uint8_t[]> copyOf(IMFSample& sample) {
  Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
  DWORD length = 0;
  if (FAILED(sample.GetBufferByIndex(0, &buffer)) || FAILED(buffer->GetCurrentLength(&length))) return nullptr;
  const BufferLock lock(buffer.Get());
  if (!lock.data()) return nullptr;
  std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[length]);
  std::memcpy(copy.get(), lock.data(), length);
  return copy;
}

void runBare(const std::string& devicePath, StartsAndStops& taken) {
  std::promise<std::unique_ptr<std::uint8_t[]>> first;
  bool isFirst = true;
  std::unique_ptr<BareReader> reader;
  taken.starts.push_back(millisecondsOf([&] {
    reader = std::make_unique<BareReader>(devicePath, [&](IMFSample& sample) {
      if (std::exchange(isFirst, false)) first.set_value(copyOf(sample));
    });
    if (!first.get_future().get()) throw std::runtime_error("the camera gives a bare reader no frame");
  }));
  taken.stops.push_back(millisecondsOf([&] { reader.reset(); }));
}

}  // namespace

void compareCaptures(Comparison& comparison) {
  const Row start{"start to the first frame", "a bare asynchronous reader's first frame", 1.10};
  const Row stop{"stop of a capture", "the end of a bare reader", 1.20};
  if (!comparison.wants(start.work) && !comparison.wants(stop.work)) return;

  const FoundCamera camera(cameraOf(QStringLiteral("Camera"), QSize(1280, 720)));
  CameraFrameCapturer& capturer = *camera.component().getFrameCapturer();
  StartsAndStops module;
  StartsAndStops bare;
  const auto both = [&](int rounds) {
    alternate(
        rounds, [&] { runModule(capturer, module); }, [&] { runBare(camera.path(), bare); });
  };
  both(1);
  module = bare = {};
  both(kRounds);
  if (comparison.wants(start.work)) comparison.record(start, module.starts, bare.starts);
  if (comparison.wants(stop.work)) comparison.record(stop, module.stops, bare.stops);
}
