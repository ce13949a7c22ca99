#include "standalone/virtual_camera/pictures/image_sequence.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(ImageSequence, ShowsEachImageForItsTimeAndThenTheFirstAgain) {
  const QTemporaryDir folder;
  ImageSequencePicture picture{{}, 0.5};
  const QColor colours[] = {Qt::red, Qt::green, Qt::blue};
  for (const QColor& colour : colours) {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(colour);
    picture.files << folder.filePath(colour.name().mid(1) + QStringLiteral(".png"));
    ASSERT_TRUE(image.save(picture.files.last()));
  }
  picture.files << folder.filePath(QStringLiteral("gone.png"));
  ImageSequence sequence(picture, {64, 64});
  for (const auto& [seconds, colour] : {std::pair<double, QColor>{0, Qt::red},
                                        {0.49, Qt::red},
                                        {0.5, Qt::green},
                                        {1.2, Qt::blue},
                                        {1.5, Qt::black},
                                        {2.1, Qt::red},
                                        {0.7, Qt::green}}) {
    EXPECT_EQ(sequence.frameAt(0, seconds).pixelColor(32, 32), colour) << seconds;
  }
}
