// What the barcode test's loop itself costs for a frame (copying out of the capturer, copying into the image,
// mirroring, handing over to the dialog), against bare copies of the same number of bytes, and beside the decoder's
// time. As in the test, the loop runs on a thread of its own and the open dialog on the user-interface thread. Usage:
// barcode_loop_benchmark [CODE.png], an image of a code to put into the frames "with a code".

#include <QApplication>
#include <QImage>
#include <QZXing.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <span>
#include <thread>
#include <vector>

#include "capture/frame_copy.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "tests/test_steps.h"
#include "ui/camera_barcode_widget_wrapper.h"

namespace {

constexpr int kRounds = 25;
constexpr double kLimit = 1.5;

using Bytes = std::unique_ptr<std::uint8_t[]>;

// Calls `step` on the user-interface thread, after everything that is queued for it, and waits for its end.
void onUserInterface(const std::function<void()>& step) {
  QMetaObject::invokeMethod(qApp, step, Qt::BlockingQueuedConnection);
}

// How long steps took, in milliseconds.
class Durations {
 public:
  void measure(const std::function<void()>& step) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    step();
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }

  [[nodiscard]] double median() {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
  }

 private:
  std::vector<double> times;
};

// Each copy into fresh memory, as the loop makes them.
Bytes bareCopy(const std::uint8_t* from, std::size_t size) {
  Bytes copy(new std::uint8_t[size]);
  std::memcpy(copy.get(), from, size);
  return copy;
}

void measure(const char* content, const QImage& picture, CameraBarcodeWidgetWrapper& wrapper) {
  const auto size = static_cast<std::size_t>(picture.sizeInBytes());
  const std::span<const std::uint8_t> source(picture.constBits(), size);
  FrameFormat format;
  format.width = static_cast<std::uint32_t>(picture.width());
  format.height = static_cast<std::uint32_t>(picture.height());
  QZXing decoder(nullptr);
  decoder.setDecoder(0);
  decoder.setTryHarderBehaviour(2);

  QImage lastFrame;
  Bytes lastCopy;
  QString text;
  Durations loop, bare, mirroring, handingOver, decoding;
  // In turn, so that whatever else the machine does meets all of them alike.
  for (int round = 0; round < kRounds; ++round) {
    loop.measure([&] {
      Bytes buffer(new std::uint8_t[size]);
      copyOpaque(source, buffer.get());
      lastFrame = test_steps::copyFrame(std::move(buffer), format);
      wrapper.SendFrame(lastFrame.mirrored(true, false));
    });
    onUserInterface([] {});
    Bytes handedOver;
    bare.measure([&] {
      const Bytes buffer = bareCopy(source.data(), size);
      lastCopy = bareCopy(buffer.get(), size);
      handedOver = bareCopy(lastCopy.get(), size);
    });

    QImage mirrored;
    mirroring.measure([&] { mirrored = lastFrame.mirrored(true, false); });
    handingOver.measure([&] { wrapper.SendFrame(mirrored); });
    onUserInterface([] {});
    decoding.measure([&] { text = decoder.decodeImage(lastFrame, -1, -1, false); });
  }
  const double ratio = loop.median() / bare.median();
  std::printf("%4dx%-4d  %-7s  %6.2f  %6.2f  %5.2f%s  %9.2f  %11.3f  %8.2f  %s\n", picture.width(), picture.height(),
              content, loop.median(), bare.median(), ratio, ratio > kLimit ? " !" : "  ", mirroring.median(),
              handingOver.median(), decoding.median(), qPrintable(text));
}

struct View {
  const char* content;
  QImage frame;
};

std::vector<View> drawViews(const QString& codeFile) {
  std::vector<View> views;
  for (const QSize size : {QSize(640, 480), QSize(1280, 720), QSize(1920, 1080)}) {
    BarcodePicture picture;
    views.push_back({"desk", makePictureSource(picture, size)->frameAt(0, 1)});
    if (codeFile.isEmpty()) continue;
    picture.codes = {{Symbology::kQr, QString(), codeFile}};
    views.push_back({"code", makePictureSource(picture, size)->frameAt(0, 1)});
  }
  return views;
}

void measureAll(const std::vector<View>& views) {
  std::printf("Milliseconds a frame, medians of %d. \"!\" marks a ratio above %.1f.\n", kRounds, kLimit);
  std::printf("frame      content    loop    copy  ratio    mirroring  handing over  decoding  read\n");
  for (const auto& [content, frame] : views) {
    auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(frame.size(), nullptr);
    onUserInterface([&] { wrapper->CreateWidget(nullptr, nullptr); });
    measure(content, frame, *wrapper);
    wrapper->Close();
    wrapper.reset();
    onUserInterface([] {});
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  // Drawn here: Qt's search for image plug-ins leaves thread-local memory, which mingw frees before its destructor runs
  // when a thread ends.
  const std::vector<View> views = drawViews(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
  std::thread tester([&] {
    measureAll(views);
    QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
  });
  const int status = QApplication::exec();
  tester.join();
  return status;
}
