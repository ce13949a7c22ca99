#include "ui/picture_dialog.h"

#include <QFile>
#include <QLabel>

#include <functional>

#include "unit_tests/ui/dialog_helpers.h"
#include "unit_tests/ui/form_text.h"

namespace {

template <class Dialog>
class PictureDialogTest : public DialogTest<Dialog> {};
using Dialogs = testing::Types<CameraDialog, CameraBarcodeDialog>;
TYPED_TEST_SUITE(PictureDialogTest, Dialogs);

TYPED_TEST(PictureDialogTest, HasItsFormAndItsSignalsAndSlots) {
  this->create();
  QFile expected(this->kBarcode ? FORMS_FOLDER "/form_of_camera_barcode_dialog.txt"
                                : FORMS_FOLDER "/form_of_camera_dialog.txt");
  ASSERT_TRUE(expected.open(QIODevice::ReadOnly | QIODevice::Text));
  EXPECT_EQ(describeForm(*this->dialog, this->kPrefix).toStdString() + ownMethods(TypeParam::staticMetaObject) + "\n",
            expected.readAll().toStdString());
  EXPECT_TRUE(this->template part<QPushButton>("header_close")->isFlat());
}

TYPED_TEST(PictureDialogTest, IsModalWithItsTitleAndNamesAndDescribedForAScreenReader) {
  const MarkingTranslator translator;
  for (const bool reader : {false, true}) {
    fakePlatform().narratorRuns = reader;
    TypeParam& created = this->create();
    EXPECT_EQ(created.windowFlags().toInt(), this->kBarcode ? 0x803 : 0x40803);
    EXPECT_EQ(created.windowModality(), Qt::ApplicationModal);
    EXPECT_FALSE(created.testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_EQ(created.windowTitle(), "<APPLICATION_NAME&>");
    EXPECT_EQ(this->template part<QLabel>("header_label")->text(),
              this->kBarcode ? "<CAMERA_BARCODE_DIALOG_TITLE&>" : "<CAMERA_DIALOG_TITLE&>");
    EXPECT_EQ(this->part("header_close")->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(this->part("header_close")->accessibleName(), "<CLOSE_POP_UP&>");
    EXPECT_EQ(this->part(this->kView)->accessibleName(), "<CAMERA&>");
    EXPECT_EQ(this->part("header_close")->accessibleDescription(), reader ? "<CLOSE_POP_UP&>" : "");
    EXPECT_EQ(this->part(this->kView)->accessibleDescription(), reader ? "<CAMERA&>" : "");
  }
}

TYPED_TEST(PictureDialogTest, EveryWayOfClosingGivesFive) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"Escape", [this] { pressKey(*this->dialog, Qt::Key_Escape); }},
      {"button", [this] { this->template part<QPushButton>("header_close")->click(); }},
      {"Enter on the button",
       [this] { this->part("header_close")->setFocus(), pressKey(*this->dialog, Qt::Key_Return); }},
      {"Close", [this] { this->dialog->Close(); }},
      {"close", [this] { this->dialog->close(); }},
      {"reject", [this] { this->dialog->reject(); }},
      {"accept", [this] { this->dialog->accept(); }},
      {"done", [this] { this->dialog->done(1); }},
      {"finished", [this] { emit this->dialog->finished(0); }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    int finished = 0;
    this->expectAnswer(5, [&] {
      QObject::connect(this->dialog.get(), &QDialog::finished, [&] { ++finished; });
      way();
    });
    EXPECT_GE(finished, 1);
  }
}

TYPED_TEST(PictureDialogTest, WithoutAScreenReaderOnlyEscapeCounts) {
  this->activate();
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Up, Qt::Key_Down}) {
    this->dialog->focusWidget()->clearFocus();
    pressKey(*this->dialog, key);
    EXPECT_TRUE(this->dialog->isVisible());
    EXPECT_EQ(this->focused(), "");
    this->part("header_close")->setFocus();
  }
  EXPECT_EQ(this->result, 0);
}

TYPED_TEST(PictureDialogTest, ArrowsOfAScreenReaderGoRoundAndPassOverWhatTheBarcodeDialogHides) {
  fakePlatform().narratorRuns = true;
  this->activate();
  EXPECT_TRUE(this->part("header_label")->hasFocus());
  pressKey(*this->dialog, Qt::Key_Left);
  EXPECT_EQ(this->focused(), "header_label");
  const std::string last = this->kBarcode ? "button_fail" : this->kView;
  for (const auto& [key, place] : {std::pair(Qt::Key_Up, last), std::pair(Qt::Key_Down, std::string("header_label"))}) {
    this->dialog->focusWidget()->clearFocus();
    pressKey(*this->dialog, key);
    EXPECT_EQ(this->focused(), place) << "from none";
  }
  this->part(last.c_str())->hide();
  pressKey(*this->dialog, Qt::Key_Up);
  EXPECT_EQ(this->part("fail_text_label") && this->part("fail_text_label")->hasFocus(), this->kBarcode);
  if constexpr (TestFixture::kBarcode) {
    pressKey(*this->dialog, Qt::Key_Down);
    EXPECT_EQ(this->focused(), "fail_text_label") << "not round again";
    this->dialog->ShowRetry();
    this->part("warning_container")->hide();
    this->part("camera_image")->setFocus();
    for (const auto& [key, place] :
         {std::pair(Qt::Key_Down, "fail_text_label"), std::pair(Qt::Key_Up, "camera_image")}) {
      pressKey(*this->dialog, key);
      EXPECT_EQ(this->focused(), place) << "over the hidden warning";
    }
  }

  // The reader is asked for at every key: now it is gone.
  this->part("header_label")->setFocus();
  fakePlatform().narratorRuns = false;
  pressKey(*this->dialog, Qt::Key_Down);
  EXPECT_EQ(this->focused(), "header_label");
}

TYPED_TEST(PictureDialogTest, FollowsTheMouseUntilAReleaseOverTheHeader) {
  this->activate();
  QWidget& window = *this->dialog;
  const auto hover = [this](bool overHeader, bool overClose) {
    this->part("widget_header")->setAttribute(Qt::WA_UnderMouse, overHeader);
    this->part("header_close")->setAttribute(Qt::WA_UnderMouse, overClose);
  };
  const auto sendMouse = [&](QEvent::Type type, QPoint global) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPoint(5, 7), global, button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
  };
  const auto press = [&] { sendMouse(QEvent::MouseButtonPress, window.pos() + QPoint(5, 7)); };
  const auto follows = [&](QPoint global) {
    sendMouse(QEvent::MouseMove, global);
    return window.pos() == global - QPoint(5, 7);
  };
  hover(true, true);
  press();
  EXPECT_FALSE(follows({101, 100})) << "pressed on the close button";
  hover(false, false);
  press();
  EXPECT_FALSE(follows({102, 100})) << "pressed on the picture";

  hover(true, false);
  press();
  EXPECT_EQ(window.cursor().shape(), Qt::ClosedHandCursor);
  EXPECT_TRUE(follows({103, 100}));
  hover(false, false);
  sendMouse(QEvent::MouseButtonRelease, {103, 100});
  EXPECT_TRUE(follows({130, 140})) << "a release elsewhere does not end the drag";
  hover(true, false);
  sendMouse(QEvent::MouseButtonRelease, {130, 140});
  EXPECT_FALSE(follows({150, 150}));
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
