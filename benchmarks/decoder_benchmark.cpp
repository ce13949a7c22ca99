// How long the barcode test's decoder takes over one frame, beside an ordinary frame of the same size (a desk), for
// frames that it finds hard. Usage: decoder_benchmark [PAGES]; with a number, the share of so many printed pages that
// are taken for a code instead.

#include <QGuiApplication>
#include <QImage>
#include <QZXing.h>

#include <cstdio>
#include <string>
#include <vector>

#include "benchmarks/codeless_frames.h"
#include "benchmarks/durations.h"
#include "standalone/virtual_camera/pictures/image_effects.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "tests/barcode_steps.h"

namespace {

constexpr int kRounds = 5;
// A frame that takes longer than this is measured once.
constexpr double kLongMs = 1000;
constexpr double kLimit = 10;

class Decoder {
 public:
  Decoder() { configureDecoder(decoder); }

  double medianMs(const QImage& frame) {
    std::vector<double> times;
    for (int round = 0; round < kRounds && (round == 0 || medianOf(times) < kLongMs); ++round) {
      times.push_back(millisecondsOf([&] { text = decodeFrame(decoder, frame); }));
    }
    return medianOf(times);
  }

  void compare(const std::string& content, const QImage& frame, double ordinary) {
    const double time = medianMs(frame);
    const double ratio = time / ordinary;
    std::printf("%4dx%-4d  %-28s  %10.1f  %8.1f%s  %s\n", frame.width(), frame.height(), content.c_str(), time, ratio,
                ratio > kLimit ? " !" : "  ", qPrintable(text));
    std::fflush(stdout);
  }

  QString read(const QImage& frame) { return decodeFrame(decoder, frame); }

 private:
  QZXing decoder{nullptr};
  QString text;
};

QImage noise(QSize size, double deviation) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(128, 128, 128));
  addNoise(image, deviation, 1);
  return image;
}

void compareSize(QSize size, Decoder& decoder) {
  const QImage desk = makePictureSource(BarcodePicture(), size)->frameAt(0, 1);
  const double ordinary = decoder.medianMs(desk);
  decoder.compare("desk", desk, ordinary);
  for (const double deviation : {0.05, 0.2, 0.5, 1.0}) {
    decoder.compare("noise " + std::to_string(deviation).substr(0, 4), noise(size, deviation), ordinary);
  }
  for (const quint32 seed : {0u, 1u, 2u}) decoder.compare("page", drawPage(size, seed), ordinary);
  decoder.compare("stripes", drawStripes(size, 1), ordinary);
  for (const int module : {1, 2, 3, 4, 6}) {
    const std::string pixels = std::to_string(module) + " px a module";
    decoder.compare("random, " + pixels, drawRandomModules(size, module, 1), ordinary);
    decoder.compare("finders, " + pixels, drawTiledFinders(size, module), ordinary);
  }
}

void countPages(quint32 pages, Decoder& decoder) {
  quint32 taken = 0;
  for (quint32 seed = 0; seed < pages; ++seed) {
    const QString text = decoder.read(drawPage(seed % 2 == 0 ? QSize(640, 480) : QSize(1280, 720), seed));
    if (text.isEmpty()) continue;
    ++taken;
    std::printf("page %u gave %s\n", seed, qPrintable(text));
  }
  std::printf("%u of %u pages were taken for a code\n", taken, pages);
}

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  Decoder decoder;
  if (argc > 1) {
    bool isNumber = false;
    const quint32 pages = QString::fromLocal8Bit(argv[1]).toUInt(&isNumber);
    if (!isNumber) {
      std::fprintf(stderr, "error: \"%s\" is not a number of pages\n", argv[1]);
      return 2;
    }
    countPages(pages, decoder);
    return 0;
  }
  std::printf("Milliseconds a frame, medians of %d. \"!\" marks more than %.0f times the desk's.\n", kRounds, kLimit);
  std::printf("frame      content                         decoding     ratio    read\n");
  for (const QSize size : {QSize(640, 480), QSize(1280, 720), QSize(1920, 1080)}) compareSize(size, decoder);
  return 0;
}
