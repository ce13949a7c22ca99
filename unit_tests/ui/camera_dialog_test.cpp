#include "ui/camera_dialog.h"

#include <QLabel>
#include <QPushButton>

#include <functional>
#include <memory>

#include <gmock/gmock.h>

#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/ui/dialog_helpers.h"
#include "unit_tests/ui/form_text.h"

namespace {

using testing::ElementsAre;

const std::string kPrefix = "camera_capture_test_";

class CameraDialogTest : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {}; }

  CameraDialog& create() {
    dialog = std::make_unique<CameraDialog>(nullptr, &hostFilter);
    dialog->resultTarget = &result;
    return *dialog;
  }

  QWidget* part(const std::string& name) const { return child(*dialog, kPrefix + name); }

  QObject hostFilter;
  DialogResult result{0};
  std::unique_ptr<CameraDialog> dialog;
};

TEST_F(CameraDialogTest, HasItsForm) {
  create();
  EXPECT_EQ("\n" + describeForm(*dialog, kPrefix.c_str()), R"(
~dialog_base CameraDialog QVBoxLayout verticalLayout_3 0
  border_widget QVBoxLayout verticalLayout_2 1
    ~widget_header MinimumExpanding/Fixed QHBoxLayout ~horizontalLayout_2
      ~header_icon QLabel
      ~header_label QLabel
      ~header_close QPushButton strong
    ~widget_instruction_no_footer Preferred/MinimumExpanding QVBoxLayout verticalLayout
      ~lb_image_view QLabel
)");
  EXPECT_TRUE(child<QPushButton>(*dialog, kPrefix + "header_close")->isFlat());
  EXPECT_EQ(child<QLabel>(*dialog, kPrefix + "lb_image_view")->alignment(), Qt::AlignCenter);
  EXPECT_THAT(ownMethods(CameraDialog::staticMetaObject), ElementsAre("closing()", "LoadFrame(QImage)", "Close()"));
}

TEST_F(CameraDialogTest, StandsOnTopOfTheApplicationWithItsTexts) {
  const MarkingTranslator translator;
  create();
  EXPECT_EQ(dialog->windowFlags().toInt(), 0x40803);
  EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
  EXPECT_FALSE(dialog->testAttribute(Qt::WA_DeleteOnClose));
  EXPECT_EQ(dialog->result(), 0);
  EXPECT_EQ(dialog->windowTitle(), "<APPLICATION_NAME>");
  EXPECT_EQ(child<QLabel>(*dialog, kPrefix + "header_label")->text(), "<CAMERA_DIALOG_TITLE>");
  EXPECT_EQ(part("header_close")->cursor().shape(), Qt::PointingHandCursor);
  EXPECT_EQ(part("header_close")->accessibleDescription(), "");

  fakePlatform().narratorRuns = true;
  create();
  EXPECT_EQ(part("header_close")->accessibleDescription(), "<CLOSE_POP_UP>");
  EXPECT_EQ(part("lb_image_view")->accessibleDescription(), "<CAMERA>");
}

TEST_F(CameraDialogTest, EveryWayOfClosingGivesFive) {
  const std::pair<const char*, std::function<void(CameraDialog&)>> ways[] = {
      {"Escape", [](CameraDialog& d) { pressKey(d, Qt::Key_Escape); }},
      {"button", [](CameraDialog& d) { child<QPushButton>(d, kPrefix + "header_close")->click(); }},
      {"Close", [](CameraDialog& d) { d.Close(); }},
      {"close", [](CameraDialog& d) { d.close(); }},
      {"reject", [](CameraDialog& d) { d.reject(); }},
      {"accept", [](CameraDialog& d) { d.accept(); }},
      {"done", [](CameraDialog& d) { d.done(1); }},
      {"finished", [](CameraDialog& d) { emit d.finished(0); }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    result = 0;
    create();
    int closing = 0;
    std::vector<int> finished;
    QObject::connect(dialog.get(), &CameraDialog::closing, [&] { ++closing; });
    QObject::connect(dialog.get(), &QDialog::finished, [&](int code) { finished.push_back(code); });
    dialog->show();
    way(*dialog);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(result, 5);
    EXPECT_EQ(dialog->result(), 5);
    EXPECT_GE(closing, 1);
    EXPECT_FALSE(finished.empty());
  }
}

TEST_F(CameraDialogTest, StretchesAFrameToTheImageSize) {
  create();
  auto* const view = child<QLabel>(*dialog, kPrefix + "lb_image_view");
  QImage frame(2, 1, QImage::Format_RGB32);
  frame.setPixelColor(0, 0, Qt::red);
  frame.setPixelColor(1, 0, Qt::blue);
  EXPECT_TRUE(dialog->LoadFrame(frame));
  EXPECT_EQ(view->pixmap().size(), QSize(640, 480));

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

TEST_F(CameraDialogTest, WithoutAScreenReaderOnlyEscapeCounts) {
  create();
  activate(*dialog);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Up, Qt::Key_Down}) {
    pressKey(*dialog, key);
    EXPECT_TRUE(dialog->isVisible());
  }
  EXPECT_EQ(result, 0);
}

TEST_F(CameraDialogTest, WithAScreenReaderArrowsGoRound) {
  fakePlatform().narratorRuns = true;
  create();
  activate(*dialog);
  EXPECT_TRUE(part("header_label")->hasFocus());
  const std::pair<int, const char*> steps[] = {
      {Qt::Key_Up, "lb_image_view"},  {Qt::Key_Up, "header_close"},   {Qt::Key_Up, "header_label"},
      {Qt::Key_Down, "header_close"}, {Qt::Key_Left, "header_close"}, {Qt::Key_Down, "lb_image_view"},
      {Qt::Key_Down, "header_label"},
  };
  for (const auto& [key, target] : steps) {
    pressKey(*dialog, key);
    EXPECT_TRUE(part(target)->hasFocus()) << target;
  }

  part("header_label")->clearFocus();
  pressKey(*dialog, Qt::Key_Down);
  EXPECT_TRUE(part("header_label")->hasFocus()) << "from none down to the first";
  part("header_label")->clearFocus();
  pressKey(*dialog, Qt::Key_Up);
  EXPECT_TRUE(part("lb_image_view")->hasFocus()) << "from none up to the last";

  // The reader is asked for at every key: now it is gone.
  fakePlatform().narratorRuns = false;
  pressKey(*dialog, Qt::Key_Down);
  EXPECT_TRUE(part("lb_image_view")->hasFocus());
}

TEST_F(CameraDialogTest, FollowsTheMouseUntilAReleaseOverTheHeader) {
  create();
  activate(*dialog);
  QWidget* const header = part("widget_header");
  QWidget* const closeButton = part("header_close");
  const auto pressAt = [&](bool overHeader, bool overClose) {
    header->setAttribute(Qt::WA_UnderMouse, overHeader);
    closeButton->setAttribute(Qt::WA_UnderMouse, overClose);
    sendMouse(*dialog, QEvent::MouseButtonPress, {5, 7}, dialog->pos() + QPoint(5, 7));
  };
  const auto follows = [&](QPoint global) {
    sendMouse(*dialog, QEvent::MouseMove, {0, 0}, global);
    return dialog->pos() == global - QPoint(5, 7);
  };
  EXPECT_FALSE(follows({100, 100})) << "before any press";
  pressAt(true, true);
  EXPECT_FALSE(follows({101, 100})) << "pressed on the close button";
  pressAt(false, false);
  EXPECT_FALSE(follows({102, 100})) << "pressed on the picture";

  pressAt(true, false);
  EXPECT_EQ(dialog->cursor().shape(), Qt::ClosedHandCursor);
  EXPECT_TRUE(follows({103, 100}));
  header->setAttribute(Qt::WA_UnderMouse, false);
  sendMouse(*dialog, QEvent::MouseButtonRelease, {5, 7}, {103, 100});
  EXPECT_TRUE(follows({130, 140})) << "a release elsewhere does not end the drag";
  header->setAttribute(Qt::WA_UnderMouse, true);
  sendMouse(*dialog, QEvent::MouseButtonRelease, {5, 7}, {130, 140});
  EXPECT_FALSE(follows({150, 150}));
  EXPECT_EQ(dialog->cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
