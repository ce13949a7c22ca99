// What the barcode test's loop itself costs for a frame (copying out of the capturer, copying into the image,
// mirroring, handing over to the dialog), against bare copies of the same number of bytes, and beside the decoder's
// time. As in the test, the loop runs on a thread of its own and the open dialog on the user-interface thread. Usage:
// barcode_loop_benchmark [CODE.png], an image of a code to put into the frames "with a code".

#include <QApplication>
#include <QImage>
#include <QZXing.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "benchmarks/durations.h"
#include "capture/frame_copy.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "tests/barcode_steps.h"
#include "tests/camera_test.h"
#include "ui/camera_barcode_widget_wrapper.h"

namespace {

constexpr int kRounds = 25;
constexpr double kLimit = 1.5;

using Bytes = std::unique_ptr<std::uint8_t[]>;

// Calls `step` on the user-interface thread, after everything that is queued for it, and waits for its end.
void onUserInterface(const std::function<void()>& step) {
  QMetaObject::invokeMethod(qApp, step, Qt::BlockingQueuedConnection);
}

// Each copy into fresh memory, as the loop makes them.
Bytes bareCopy(const std::uint8_t* from, std::size_t size) {
  Bytes copy(new std::uint8_t[size]);
  std::memcpy(copy.get(), from, size);
  return copy;
}

// Delivers one picture again and again, with the copy that a capturer makes of its newest frame.
class PictureCapturer : public CameraFrameCapturer {
 public:
  explicit PictureCapturer(const QImage& image) : picture(image) {}

  CaptureStatus start() override { return CaptureOk; }
  CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t) override {
    const auto size = static_cast<std::size_t>(picture.sizeInBytes());
    buffer = new std::uint8_t[size];
    copyOpaque({picture.constBits(), size}, buffer);
    return CaptureOk;
  }
  CaptureStatus stop() override { return CaptureOk; }
  int getFrameFormat(FrameFormat& format) override {
    format = {static_cast<std::uint32_t>(picture.width()), static_cast<std::uint32_t>(picture.height()), true};
    return 0;
  }

 private:
  const QImage picture;
};

void measure(const char* content, const QImage& picture, CameraBarcodeWidgetWrapper& wrapper) {
  const auto size = static_cast<std::size_t>(picture.sizeInBytes());
  PictureCapturer capturer(picture);
  FrameFormat format;
  capturer.getFrameFormat(format);
  QZXing decoder(nullptr);
  configureDecoder(decoder);

  QImage lastFrame;
  Bytes lastCopy;
  QString text;
  Durations loop, bare, mirroring, handingOver, decoding;
  // In turn, so that whatever else the machine does meets all of them alike.
  for (int round = 0; round < kRounds; ++round) {
    loop.measure([&] {
      if (CameraTest::nextFrame(capturer, format, lastFrame) == CaptureOk) showMirrored(lastFrame, wrapper);
    });
    onUserInterface([] {});
    Bytes handedOver;
    bare.measure([&] {
      const Bytes buffer = bareCopy(picture.constBits(), size);
      lastCopy = bareCopy(buffer.get(), size);
      handedOver = bareCopy(lastCopy.get(), size);
    });

    QImage mirrored;
    mirroring.measure([&] { mirrored = lastFrame.mirrored(true, false); });
    handingOver.measure([&] { wrapper.SendFrame(mirrored); });
    onUserInterface([] {});
    decoding.measure([&] { text = decodeFrame(decoder, lastFrame); });
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
    onUserInterface([&] { static_cast<void>(wrapper->CreateWidget(nullptr, nullptr)); });
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
