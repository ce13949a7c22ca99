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

}  // namespace
