#include "ui/camera_dialog.h"

#include <QLabel>

#include "unit_tests/ui/dialog_helpers.h"
#include "unit_tests/ui/form_text.h"

namespace {

using testing::ElementsAre;

using CameraDialogTest = DialogTest<CameraDialog>;

TEST_F(CameraDialogTest, HasItsForm) {
  create();
  EXPECT_EQ("\n" + describeForm(*dialog, kPrefix), R"(
~dialog_base CameraDialog QVBoxLayout verticalLayout_3 0
  border_widget QVBoxLayout verticalLayout_2 1
    ~widget_header MinimumExpanding/Fixed QHBoxLayout ~horizontalLayout_2
      ~header_icon QLabel
      ~header_label QLabel
      ~header_close QPushButton strong
    ~widget_instruction_no_footer Preferred/MinimumExpanding QVBoxLayout verticalLayout
      ~lb_image_view QLabel
)");
  EXPECT_TRUE(part<QPushButton>("header_close")->isFlat());
  EXPECT_EQ(part<QLabel>("lb_image_view")->alignment(), Qt::AlignCenter);
  EXPECT_THAT(ownMethods(CameraDialog::staticMetaObject), ElementsAre("closing()", "LoadFrame(QImage)", "Close()"));
}

TEST_F(CameraDialogTest, StretchesAFrameToTheImageSize) {
  create();
  auto* const view = part<QLabel>("lb_image_view");
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
