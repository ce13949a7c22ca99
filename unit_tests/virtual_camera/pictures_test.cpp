#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/pictures/picture_source.h"
#include "standalone/virtual_camera/pictures/test_pattern.h"

namespace {

QRect cornerBlock(QPoint corner) {
  return {corner, QSize(TestPattern::cornerSide, TestPattern::cornerSide)};
}

bool isFilledWith(const QImage& image, QRgb colour) {
  QImage expected(image.size(), image.format());
  expected.fill(colour);
  return image == expected;
}

class TestPatternSize : public testing::TestWithParam<QSize> {};

// Over one round of the moving light, which comes near the corners of a small frame.
TEST_P(TestPatternSize, CornersHaveTheirColoursAtAllTimes) {
  const QSize size = GetParam();
  const int right = size.width() - TestPattern::cornerSide;
  const int bottom = size.height() - TestPattern::cornerSide;
  TestPattern pattern(size);
  for (int quarter = 0; quarter < 16; ++quarter) {
    const QImage frame = pattern.frameAt(0, quarter / 4.0);
    ASSERT_EQ(frame.size(), size);
    ASSERT_EQ(frame.format(), QImage::Format_RGB32);
    EXPECT_TRUE(isFilledWith(frame.copy(cornerBlock({0, 0})), TestPattern::corners.topLeft));
    EXPECT_TRUE(isFilledWith(frame.copy(cornerBlock({right, 0})), TestPattern::corners.topRight));
    EXPECT_TRUE(isFilledWith(frame.copy(cornerBlock({0, bottom})), TestPattern::corners.bottomLeft));
    EXPECT_TRUE(isFilledWith(frame.copy(cornerBlock({right, bottom})), TestPattern::corners.bottomRight));
  }
}

INSTANTIATE_TEST_SUITE_P(, TestPatternSize,
                         testing::Values(QSize(1280, 720), QSize(640, 480), QSize(64, 64), QSize(65, 301)),
                         [](const auto& parameter) {
                           return std::to_string(parameter.param.width()) + "x" +
                                  std::to_string(parameter.param.height());
                         });

TEST(TestPattern, MovesWithTimeAndOnlyWithTime) {
  TestPattern pattern(QSize(640, 480));
  const QImage first = pattern.frameAt(0, 1.00);
  EXPECT_NE(first, pattern.frameAt(1, 1.04));
  EXPECT_EQ(first, pattern.frameAt(9, 1.00));
}

TEST(StillImage, IsFittedIntoTheFrameWithBlackBesideIt) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("picture.png"));
  QImage image(100, 50, QImage::Format_RGB32);
  image.fill(Qt::green);
  QPainter(&image).fillRect(0, 0, 50, 50, Qt::red);
  ASSERT_TRUE(image.save(file));

  const QImage frame = makePictureSource(ImageFilePicture{file}, QSize(400, 400))->frameAt(0, 0);
  EXPECT_EQ(frame.size(), QSize(400, 400));
  EXPECT_EQ(frame.pixelColor(200, 95), QColor(Qt::black));
  EXPECT_EQ(frame.pixelColor(10, 105), QColor(Qt::red));
  EXPECT_EQ(frame.pixelColor(390, 295), QColor(Qt::green));
  EXPECT_EQ(frame.pixelColor(200, 305), QColor(Qt::black));
}

// Black and white halves stand for a code: what the scene does with it shows in single pixels.
class BarcodeSceneTest : public testing::Test {
 protected:
  BarcodeSceneTest() {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).fillRect(0, 0, 50, 100, Qt::black);
    const QString file = folder.filePath(QStringLiteral("code.png"));
    EXPECT_TRUE(image.save(file));
    picture.codes = {{Symbology::Qr, QStringLiteral("a"), file, 1, 2}};
    picture.background = BarcodeBackground::White;
    picture.size = 0.5;
  }

  QImage frame(double seconds, quint64 number = 0) {
    return makePictureSource(picture, QSize(400, 200))->frameAt(number, seconds);
  }
  int brightness(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)); }

  QTemporaryDir folder;
  BarcodePicture picture;
};

TEST_F(BarcodeSceneTest, ACodeIsInViewForItsTimeAndInItsPlace) {
  QImage white(400, 200, QImage::Format_RGB32);
  white.fill(Qt::white);
  EXPECT_EQ(frame(0.99), white);
  EXPECT_EQ(frame(2), white);
  const QImage shown = frame(1.5);
  EXPECT_EQ(brightness(shown, 155, 100), 0);
  EXPECT_EQ(brightness(shown, 195, 55), 0);
  EXPECT_EQ(brightness(shown, 205, 145), 255);
  EXPECT_NE(frame(1.1), shown) << "it is still on its way";
}

TEST_F(BarcodeSceneTest, RotationBlurAndContrastChangeTheCode) {
  picture.rotation = 90;
  EXPECT_EQ(brightness(frame(1.5), 200, 60), 0) << "clockwise: the left half is on top";
  picture.blur = 4;
  const int edge = brightness(frame(1.5), 200, 98);
  EXPECT_GT(edge, 40);
  EXPECT_LT(edge, 128);
  picture.contrast = 0.25;
  EXPECT_NEAR(brightness(frame(1.5), 200, 60), 96, 1);
  EXPECT_NEAR(brightness(frame(0), 200, 60), 159, 1);
}

TEST_F(BarcodeSceneTest, NoiseHasItsStrengthAndIsTheSameForTheSameFrame) {
  picture.noise = 0.1;
  picture.contrast = 0;
  const QImage noisy = frame(0, 7);
  EXPECT_EQ(noisy, frame(0, 7));
  EXPECT_NE(noisy, frame(0, 8));
  double sum = 0, squares = 0;
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 400; ++x) {
      const double value = brightness(noisy, x, y) - 128;
      sum += value;
      squares += value * value;
    }
  }
  EXPECT_NEAR(sum / 80000, 0, 1);
  EXPECT_NEAR(squares / 80000, 25.5 * 25.5, 30);
}

}  // namespace
