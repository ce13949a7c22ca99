// What the barcode test's loop itself costs for a frame (copying out of the capturer, copying into the image,
// mirroring, handing over), against bare copies of the same number of bytes, and beside the decoder's time. Usage:
// barcode_loop_benchmark [CODE.png], an image of a code to put into the frames "with a code".

#include <QImage>
#include <QZXing.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#include "capture/frame_copy.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "tests/test_steps.h"

namespace {

constexpr int kRounds = 25;
constexpr double kLimit = 1.5;

// The median of several rounds, in milliseconds.
double milliseconds(const std::function<void()>& step) {
  using Clock = std::chrono::steady_clock;
  std::vector<double> times;
  for (int i = 0; i < kRounds; ++i) {
    const auto start = Clock::now();
    step();
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::ranges::nth_element(times, times.begin() + kRounds / 2);
  return times[kRounds / 2];
}

void measure(const char* content, const QImage& picture) {
  const auto bytes = static_cast<std::size_t>(picture.sizeInBytes());
  const std::span<const std::uint8_t> source(picture.constBits(), bytes);
  FrameFormat format;
  format.width = static_cast<std::uint32_t>(picture.width());
  format.height = static_cast<std::uint32_t>(picture.height());

  QImage lastFrame;
  QImage handedOver;
  const double loop = milliseconds([&] {
    std::unique_ptr<std::uint8_t[]> buffer(new std::uint8_t[bytes]);
    copyOpaque(source, buffer.get());
    lastFrame = test_steps::copyFrame(std::move(buffer), format);
    handedOver = lastFrame.mirrored(true, false);
  });
  // Three copies into fresh memory, as the loop makes them.
  std::unique_ptr<std::uint8_t[]> kept[2];
  const double bare = milliseconds([&] {
    std::unique_ptr<std::uint8_t[]> buffer(new std::uint8_t[bytes]);
    std::memcpy(buffer.get(), source.data(), bytes);
    for (auto& copy : kept) {
      std::unique_ptr<std::uint8_t[]> fresh(new std::uint8_t[bytes]);
      std::memcpy(fresh.get(), buffer.get(), bytes);
      copy = std::move(fresh);
    }
  });
  const double mirroring = milliseconds([&] { handedOver = lastFrame.mirrored(true, false); });

  QZXing decoder(nullptr);
  decoder.setDecoder(0);
  decoder.setTryHarderBehaviour(2);
  QString text;
  const double decoding = milliseconds([&] { text = decoder.decodeImage(lastFrame, -1, -1, false); });
  std::printf("%4dx%-4d  %-7s  %7.2f  %7.2f  %5.2f%s  %9.2f  %8.2f  %s\n", picture.width(), picture.height(), content,
              loop, bare, loop / bare, loop / bare > kLimit ? " !" : "  ", mirroring, decoding, qPrintable(text));
}

}  // namespace

int main(int argc, char* argv[]) {
  std::printf("Milliseconds a frame, medians of %d. \"!\" marks a ratio above %.1f.\n", kRounds, kLimit);
  std::printf("frame      content     loop     copy  ratio    mirroring  decoding  read\n");
  for (const QSize size : {QSize(640, 480), QSize(1280, 720), QSize(1920, 1080)}) {
    BarcodePicture picture;
    measure("desk", makePictureSource(picture, size)->frameAt(0, 1));
    if (argc < 2) continue;
    picture.codes = {{Symbology::Qr, QString(), QString::fromLocal8Bit(argv[1])}};
    measure("code", makePictureSource(picture, size)->frameAt(0, 1));
  }
  return 0;
}
