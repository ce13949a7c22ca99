// What the decoder reads, set up as the barcode test sets it up, of frames that a camera might deliver.

#include <QElapsedTimer>
#include <QZXing.h>

#include <iterator>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "benchmarks/codeless_frames.h"
#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/pictures/image_effects.h"
#include "standalone/virtual_camera/pictures/picture_source.h"
#include "tests/barcode_steps.h"

namespace {

QString decode(const QImage& frame) {
  QZXing decoder(nullptr);
  configureDecoder(decoder);
  return decodeFrame(decoder, frame);
}

// One code of each symbology; the columns below are in this order.
const std::vector<ShownCode>& corpus() {
  static const CameraFile file = readCameraFile(QStringLiteral(CORPUS_FILE));
  return std::get<BarcodePicture>(file.cameras.at(0).picture).codes;
}

struct Level {
  const char* name;
  double rotation;
  double blur;
  double noise;
  double contrast;
  int decoded[7];  ///< of six frames for each symbology, as measured
};

// Measured, not wished for: the counts tell what to promise, and a change of the decoder shows in them.
constexpr Level kLevels[] = {
    {"still", 0, 0, 0, 1, {6, 6, 6, 6, 6, 6, 6}},
    {"slightly turned", 8, 0, 0, 1, {6, 6, 3, 6, 6, 5, 6}},
    {"turned by 45 degrees", 45, 0, 0, 1, {6, 0, 0, 0, 0, 0, 0}},
    {"turned by 90 degrees", 90, 0, 0, 1, {6, 6, 6, 0, 0, 0, 0}},
    {"upside down", 180, 0, 0, 1, {6, 6, 6, 6, 6, 6, 6}},
    {"soft", 0, 1, 0, 1, {6, 6, 6, 5, 5, 4, 5}},
    {"out of focus", 0, 2.5, 0, 1, {6, 4, 4, 2, 1, 1, 2}},
    {"noisy", 0, 0, 0.05, 1, {6, 6, 6, 5, 6, 6, 6}},
    {"very noisy", 0, 0, 0.15, 1, {3, 2, 6, 5, 0, 0, 1}},
    {"pale", 0, 0, 0, 0.3, {6, 6, 6, 5, 6, 6, 6}},
    {"everything at once", 5, 0.8, 0.04, 0.6, {6, 4, 3, 4, 5, 3, 4}},
};

class BarcodeCorpus : public testing::TestWithParam<Level> {};

TEST_P(BarcodeCorpus, IsDecodedAsOftenAsMeasuredAndNeverMisread) {
  const Level& level = GetParam();
  ASSERT_EQ(corpus().size(), std::size(level.decoded));
  for (std::size_t i = 0; i < corpus().size(); ++i) {
    const QString& text = corpus()[i].text;
    int decoded = 0;
    for (const QSize size : {QSize(640, 480), QSize(1280, 720)}) {
      for (const double share : {0.5, 0.65, 0.8}) {
        BarcodePicture picture;
        picture.codes = {corpus()[i]};
        picture.size = share;
        picture.rotation = level.rotation;
        picture.blur = level.blur;
        picture.noise = level.noise;
        picture.contrast = level.contrast;
        const QString read = decode(makePictureSource(picture, size)->frameAt(1, 1));
        if (read == text) ++decoded;
        EXPECT_TRUE(read.isEmpty() || read == text) << text.toStdString() << " misread as " << read.toStdString();
      }
    }
    EXPECT_EQ(decoded, level.decoded[i]) << level.name << ": " << text.toStdString() << " of 6";
  }
}

INSTANTIATE_TEST_SUITE_P(, BarcodeCorpus, testing::ValuesIn(kLevels), [](const auto& parameter) {
  return QString::fromLatin1(parameter.param.name).replace(QLatin1Char(' '), QLatin1Char('_')).toStdString();
});

TEST(FramesWithoutACode, NeverYieldAValue) {
  for (const QSize size : {QSize(640, 480), QSize(1280, 720), QSize(1920, 1080)}) {
    BarcodePicture empty;
    const auto desk = makePictureSource(empty, size);
    const auto pattern = makePictureSource(TestPatternPicture{}, size);
    for (quint32 i = 0; i < 4; ++i) {
      QImage noise(size, QImage::Format_RGB32);
      noise.fill(QColor(128, 128, 128));
      addNoise(noise, 0.1 + 0.3 * i, i);
      const std::pair<const char*, QImage> frames[] = {{"desk", desk->frameAt(i, i)},
                                                       {"test pattern", pattern->frameAt(i, 0.7 * i)},
                                                       {"noise", noise},
                                                       {"stripes", drawStripes(size, i)}};
      for (const auto& [name, frame] : frames) EXPECT_EQ(decode(frame).toStdString(), "") << name << ' ' << i;
    }
  }
}

qint64 millisecondsToDecode(const QImage& frame) {
  QElapsedTimer clock;
  clock.start();
  EXPECT_EQ(decode(frame).toStdString(), "");
  return clock.elapsed();
}

// Without its bound the decoder takes minutes over such a frame. How much longer than an ordinary one a frame may take
// is for the benchmark to say: the machine that tests is busy.
TEST(FramesWithoutACode, AreDecodedInBoundedTimeHoweverManyPatternsTheyHold) {
  const qint64 ordinary = millisecondsToDecode(makePictureSource(BarcodePicture(), QSize(1280, 720))->frameAt(0, 1));
  EXPECT_LT(millisecondsToDecode(drawTiledFinders(QSize(1280, 720), 2)), 1000 * (ordinary + 1));
}

}  // namespace
