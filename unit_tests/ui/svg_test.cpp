// That Qt reads SVG: without its plug-ins nothing is drawn and nothing is said.

#include <QByteArray>
#include <QColor>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QSize>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// Its left half is blue by an attribute, its right half red by a style.
const QByteArray kTwoHalves =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32">)"
    R"(<rect width="16" height="32" fill="#0000ff"/><rect x="16" width="16" height="32" style="fill:#ff0000"/></svg>)";

class SvgTest : public testing::Test {
 protected:
  void SetUp() override {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(kTwoHalves), kTwoHalves.size());
  }

  const QTemporaryDir folder;
  const QString path = folder.filePath("halves.svg");
};

void expectHalves(const QImage& image) {
  ASSERT_EQ(image.size(), QSize(64, 64));
  EXPECT_EQ(image.pixelColor(16, 32), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(48, 32), QColor(Qt::red));
}

TEST_F(SvgTest, IsDrawnAsAnIconOfAnySize) {
  expectHalves(QIcon(path).pixmap(QSize(64, 64), 1).toImage());
}

TEST_F(SvgTest, IsReadAsAnImage) {
  QImageReader reader(path);
  reader.setScaledSize(QSize(64, 64));
  expectHalves(reader.read());
}

TEST_F(SvgTest, IsDrawnByAStyleSheet) {
  QLabel label;
  label.setFixedSize(64, 64);
  label.setStyleSheet("image: url(" + path + ")");
  expectHalves(label.grab().toImage());
}

}  // namespace
