#include "ui/camera_dialog.h"

#include <QLabel>

#include "unit_tests/ui/dialog_helpers.h"

namespace {

using CameraDialogTest = DialogTest<CameraDialog>;

TEST_F(CameraDialogTest, StretchesAFrameToTheImageSize) {
  create();
  auto* const view = part<QLabel>("lb_image_view");
  EXPECT_EQ(view->alignment(), Qt::AlignCenter);
  QImage frame(2, 1, QImage::Format_RGB32);
  frame.setPixelColor(0, 0, Qt::red);
  frame.setPixelColor(1, 0, Qt::blue);
  dialog->SetImageSize(100, 200);
  EXPECT_EQ(view->maximumSize(), QSize(100, 200));
  EXPECT_TRUE(dialog->LoadFrame(frame));
  const QImage shown = view->pixmap().toImage();
  ASSERT_EQ(shown.size(), QSize(100, 200));
  EXPECT_EQ(shown.pixelColor(49, 199), QColor(Qt::red)) << "not smoothed";
  EXPECT_EQ(shown.pixelColor(50, 0), QColor(Qt::blue));

  EXPECT_TRUE(dialog->LoadFrame(QImage()));
  EXPECT_TRUE(view->pixmap().isNull());
}

}  // namespace
