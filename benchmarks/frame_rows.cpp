#include <mfapi.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <QImage>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <tuple>

#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/planting.h"
#include "benchmarks/rows.h"
#include "benchmarks/user_interface.h"
#include "capture/win_camera_frame_capturer.h"
#include "discovery/camera_component.h"
#include "tests/barcode_steps.h"
#include "tests/camera_test.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"

using Microsoft::WRL::ComPtr;

namespace {

using Bytes = std::unique_ptr<std::uint8_t[]>;

// Not inlined: a copy that nobody reads must not be left out.
[[gnu::noinline]] Bytes copyOf(const std::uint8_t* from, std::size_t size) {
  Bytes copy(new std::uint8_t[size]);
  std::memcpy(copy.get(), from, size);
  return copy;
}

/// A sample with one buffer, as a camera delivers it.
class Sample {
 public:
  explicit Sample(DWORD size) {
    if (FAILED(MFCreateSample(&sample)) || FAILED(MFCreateMemoryBuffer(size, &buffer)) ||
        FAILED(buffer->Lock(&contents, nullptr, nullptr))) {
      throw std::runtime_error("Media Foundation gives no sample");
    }
    for (DWORD i = 0; i < size; ++i) contents[i] = static_cast<BYTE>(i * 7 + i / 4096);
    buffer->SetCurrentLength(size);
    sample->AddBuffer(buffer.Get());
  }
  ~Sample() { buffer->Unlock(); }
  Sample(const Sample&) = delete;
  Sample& operator=(const Sample&) = delete;

  [[nodiscard]] IMFSample* get() const { return sample.Get(); }
  [[nodiscard]] const std::uint8_t* data() const { return contents; }

 private:
  ComPtr<IMFSample> sample;
  ComPtr<IMFMediaBuffer> buffer;
  /// Stays locked: both sides of a row read the same block.
  BYTE* contents = nullptr;
};

/// A capturer that runs on a camera which is silent from the start: what it gets is what the program gives it.
class SilentCapture {
 public:
  explicit SilentCapture(QSize size)
      : frameSize(size),
        camera(silentCamera(0, size, {{"framesPerSecond", 1}})),
        sample(static_cast<DWORD>(bytes())),
        capturer(dynamic_cast<WinCameraFrameCapturer&>(*camera.component().getFrameCapturer())) {
    if (capturer.start() != CaptureOk) throw std::runtime_error("the silent camera does not start");
    deliver();
  }
  ~SilentCapture() { static_cast<void>(capturer.stop()); }
  SilentCapture(const SilentCapture&) = delete;
  SilentCapture& operator=(const SilentCapture&) = delete;

  void deliverTick() { capturer.OnReadSample(S_OK, 0, 0, 0, nullptr); }
  void deliver() { capturer.OnReadSample(S_OK, 0, 0, 0, sample.get()); }
  [[nodiscard]] Bytes frame() {
    std::uint8_t* frame = nullptr;
    if (capturer.getFrame(frame, 5000) != CaptureOk) throw std::runtime_error("the capturer has no frame");
    return Bytes(frame);
  }
  [[nodiscard]] std::size_t bytes() const { return std::size_t{4} * frameSize.width() * frameSize.height(); }
  [[nodiscard]] const std::uint8_t* data() const { return sample.data(); }
  [[nodiscard]] WinCameraFrameCapturer& operator*() { return capturer; }

 private:
  const QSize frameSize;
  FoundCamera camera;
  Sample sample;
  WinCameraFrameCapturer& capturer;
};

/// Passes everything on to a capturer and clocks `getFrame`.
class ClockedCapturer : public CameraFrameCapturer {
 public:
  explicit ClockedCapturer(CameraFrameCapturer& clocked) : capturer(clocked) {}

  CaptureStatus start() override { return capturer.start(); }
  CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) override {
    CaptureStatus status = CaptureFailed;
    milliseconds += millisecondsOf([&] { status = capturer.getFrame(buffer, timeoutMs); });
    return status;
  }
  CaptureStatus stop() override { return capturer.stop(); }
  int getFrameFormat(FrameFormat& format) override { return capturer.getFrameFormat(format); }

  /// What `getFrame` has taken in all.
  double milliseconds = 0;

 private:
  CameraFrameCapturer& capturer;
};

FrameFormat formatOf(CameraFrameCapturer& capturer) {
  FrameFormat format;
  if (capturer.getFrameFormat(format) != 0) throw std::runtime_error("the capturer has no format");
  return format;
}

void takeFrame(CameraFrameCapturer& capturer, const FrameFormat& format, QImage& frame) {
  if (CameraTest::nextFrame(capturer, format, frame) != CaptureOk) throw std::runtime_error("the test gets no frame");
}

/// An open dialog, as the tests have it before them.
template <class Wrapper>
class OpenDialog {
 public:
  explicit OpenDialog(QSize size) : wrapper(std::make_shared<Wrapper>(size, nullptr)) {
    onUserInterface([this] { static_cast<void>(wrapper->CreateWidget(nullptr, nullptr)); });
  }
  ~OpenDialog() {
    wrapper->Close();
    onUserInterface([] {});
  }
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

  [[nodiscard]] Wrapper& operator*() { return *wrapper; }

 private:
  std::shared_ptr<Wrapper> wrapper;
};

void compareCallback(Comparison& comparison, const Row& row, QSize size) {
  SilentCapture capture(size);
  const Bytes copy = copyOf(capture.data(), capture.bytes());
  comparison.compare(
      row, [&] { return millisecondsOf([&] { capture.deliver(); }); },
      [&] { return millisecondsOf([&] { std::memcpy(copy.get(), capture.data(), capture.bytes()); }); });
}

/// What the callback takes beside the copy: it asks for the next sample.
void compareTick(Comparison& comparison, const Row& row, QSize size) {
  SilentCapture capture(size);
  const Bytes copy = copyOf(capture.data(), capture.bytes());
  comparison.compare(
      row, [&] { return millisecondsOf([&] { capture.deliverTick(); }); },
      [&] { return millisecondsOf([&] { std::memcpy(copy.get(), capture.data(), capture.bytes()); }); });
}

void compareGetFrame(Comparison& comparison, const Row& row, QSize size) {
  SilentCapture capture(size);
  Bytes frame;
  // Freed outside: by the caller in the module's case, too.
  const auto taken = [&frame](const auto& take) {
    const double milliseconds = millisecondsOf([&] { frame = take(); });
    frame.reset();
    return milliseconds;
  };
  comparison.compare(
      row, [&] { return taken([&] { return capture.frame(); }); },
      [&] { return taken([&] { return copyOf(capture.data(), capture.bytes()); }); });
}

void compareShare(Comparison& comparison, const Row& row, QSize size) {
  SilentCapture capture(size);
  ClockedCapturer clocked(*capture);
  const FrameFormat format = formatOf(clocked);
  OpenDialog<CameraWidgetWrapper> dialog(size);
  QImage lastFrame;
  const auto share = [&] {
    clocked.milliseconds = 0;
    const double all = millisecondsOf([&] {
      takeFrame(clocked, format, lastFrame);
      (*dialog).SendFrame(lastFrame);
    });
    onUserInterface([] {});
    return all - clocked.milliseconds;
  };
  const auto bare = [&] {
    Bytes frame = capture.frame();
    Bytes image;
    return millisecondsOf([&] {
      image = copyOf(frame.get(), capture.bytes());
      frame.reset();
    });
  };
  comparison.compare(row, share, bare);
}

void compareBarcodeLoop(Comparison& comparison, const Row& row, QSize size) {
  SilentCapture capture(size);
  const FrameFormat format = formatOf(*capture);
  OpenDialog<CameraBarcodeWidgetWrapper> dialog(size);
  QImage lastFrame;
  const auto loop = [&] {
    const double milliseconds = millisecondsOf([&] {
      capture.deliver();
      takeFrame(*capture, format, lastFrame);
      showMirrored(lastFrame, *dialog);
    });
    onUserInterface([] {});
    return milliseconds;
  };
  const Bytes newest = copyOf(capture.data(), capture.bytes());
  Bytes image;
  QImage mirrored;
  const auto bare = [&] {
    const double milliseconds = millisecondsOf([&] {
      std::memcpy(newest.get(), capture.data(), capture.bytes());
      const Bytes frame = copyOf(newest.get(), capture.bytes());
      image = copyOf(frame.get(), capture.bytes());
      mirrored = QImage(image.get(), size.width(), size.height(), QImage::Format_RGB32).mirrored(true, false);
    });
    onUserInterface([&] { mirrored = QImage(); });
    return milliseconds;
  };
  comparison.compare(row, loop, bare);
}

using Compare = void (*)(Comparison& comparison, const Row& row, QSize size);

}  // namespace

void compareFrames(Comparison& comparison) {
  constexpr QSize kFullHd(1920, 1080);
  constexpr QSize kUltraHd(3840, 2160);
  const std::tuple<Row, Compare, QSize> rows[] = {
      {{"sample callback, 1920x1080", "memcpy of the frame", 1.15}, compareCallback, kFullHd},
      {{"sample callback, 3840x2160", "memcpy of the frame", 1.15}, compareCallback, kUltraHd},
      {{"sample callback without a frame", "memcpy of a frame, 1920x1080", 0}, compareTick, kFullHd},
      {{"getFrame, 1920x1080", "allocation and memcpy", 1.15}, compareGetFrame, kFullHd},
      {{"getFrame, 3840x2160", "allocation and memcpy", 1.15}, compareGetFrame, kUltraHd},
      {{"capture test's share of a frame, 1920x1080", "allocation and memcpy, freeing the capturer's block", 1.15},
       compareShare,
       kFullHd},
      {{"capture test's share of a frame, 3840x2160", "allocation and memcpy, freeing the capturer's block", 1.15},
       compareShare,
       kUltraHd},
      {{"barcode loop without decoder, 1920x1080", "three copies and Qt's mirror", 1.10}, compareBarcodeLoop, kFullHd},
  };
  for (const auto& [row, compare, size] : rows) {
    if (comparison.wants(row.work)) compare(comparison, row, size);
  }
}
