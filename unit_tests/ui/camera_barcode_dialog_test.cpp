#include "ui/camera_barcode_dialog.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

#include <functional>
#include <memory>

#include <gmock/gmock.h>

#include "ui/barcode_sizes.h"
#include "ui/viewfinder.h"
#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/ui/dialog_helpers.h"
#include "unit_tests/ui/form_text.h"

namespace {

using testing::ElementsAre;

const std::string kPrefix = "camera_barcode_test_";

class CameraBarcodeDialogTest : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {}; }

  void create() {
    dialog = std::make_unique<CameraBarcodeDialog>(nullptr, &hostFilter);
    dialog->resultTarget = &result;
  }

  QWidget* part(const std::string& name) const { return child(*dialog, kPrefix + name); }

  /// Presses the key until the focus has come round, and returns where it was.
  std::vector<std::string> walk(int key) {
    std::vector<std::string> names;
    do {
      pressKey(*dialog, key);
      names.push_back(dialog->focusWidget()->objectName().mid(static_cast<int>(kPrefix.size())).toStdString());
    } while (names.size() < 20 && (names.size() == 1 || names.back() != names.front()));
    names.pop_back();
    return names;
  }

  QObject hostFilter;
  DialogResult result{0};
  std::unique_ptr<CameraBarcodeDialog> dialog;
};

TEST_F(CameraBarcodeDialogTest, HasItsForm) {
  create();
  EXPECT_EQ("\n" + describeForm(*dialog, kPrefix.c_str()), R"(
CameraBarcodeDialog CameraBarcodeDialog MinimumExpanding/MinimumExpanding QVBoxLayout verticalLayout_2 0
  border_widget QVBoxLayout verticalLayout 1
    ~widget_header MinimumExpanding/MinimumExpanding QHBoxLayout ~horizontalLayout_2
      ~header_icon QLabel
      ~header_label QLabel
      ~header_close QPushButton strong
    ~widget_instruction MinimumExpanding/MinimumExpanding QVBoxLayout ~verticalLayout
      ~gray_area_top Minimum/Minimum QVBoxLayout ~verticalLayout_4
        ~information_message_container Maximum/Maximum hcentred QVBoxLayout ~verticalLayout_5
          ~information_message QLabel MinimumExpanding/MinimumExpanding
        ~steps_widget hcentred QHBoxLayout ~horizontalLayout_3
          ~step_one_current QLabel
          ~step_one_warning QLabel
          ~step_two_waiting QLabel
          ~step_two_current QLabel
      ~camera_image QLabel MinimumExpanding/MinimumExpanding
      ~gray_area_bottom Minimum/Minimum QVBoxLayout ~verticalLayout_3
        ~warning_container Maximum/Maximum centred QVBoxLayout ~verticalLayout_6
          ~warning_message_icon_container hcentred QHBoxLayout ~horizontalLayout_4
            ~warning_message_icon QLabel
            ~warning_message QLabel
          ~warning_message_small QLabel
    ~widget_footer MinimumExpanding/MinimumExpanding QHBoxLayout buttons_layout
      ~fail_text_label QLabel
      ~button_fail QPushButton strong
)");
  EXPECT_TRUE(child<QPushButton>(*dialog, kPrefix + "header_close")->isFlat());
  EXPECT_EQ(child<QLabel>(*dialog, kPrefix + "fail_text_label")->alignment(), Qt::AlignLeft);
  EXPECT_EQ(child<QLabel>(*dialog, kPrefix + "information_message")->alignment(), Qt::AlignCenter);
  const QSpacerItem* const spacer = part("widget_footer")->layout()->itemAt(1)->spacerItem();
  ASSERT_NE(spacer, nullptr);
  EXPECT_EQ(spacer->sizeHint(), QSize(0, 32));
  EXPECT_EQ(spacer->expandingDirections(), Qt::Horizontal);
  EXPECT_THAT(
      ownMethods(CameraBarcodeDialog::staticMetaObject),
      ElementsAre("closing()", "LoadFrame(QImage)", "Close()", "OnFailButtonClicked()", "OnClosePushButtonClicked()"));
}

TEST_F(CameraBarcodeDialogTest, ShowsItsTextsAndTheFirstAttempt) {
  const MarkingTranslator translator;
  create();
  EXPECT_EQ(dialog->windowFlags().toInt(), 0x803);
  EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(dialog->windowTitle(), "<APPLICATION_NAME>");
  const std::pair<const char*, const char*> texts[] = {{"header_label", "<CAMERA_BARCODE_DIALOG_TITLE>"},
                                                       {"information_message", "<CAMERA_POINT_BARCODE_MESSAGE>"},
                                                       {"warning_message", "<CAMERA_BARCODE_WARNING>"},
                                                       {"warning_message_small", "<CAMERA_BARCODE_RETRY_MESSAGE>"},
                                                       {"fail_text_label", "<CAMERA_FAIL_LABEL>"}};
  for (const auto& [name, text] : texts) EXPECT_EQ(child<QLabel>(*dialog, kPrefix + name)->text(), text);
  EXPECT_EQ(child<QPushButton>(*dialog, kPrefix + "button_fail")->text(), "<FAIL>");
  EXPECT_EQ(dialog->focusWidget(), part("button_fail"));

  const BarcodeSizes sizes = barcodeSizesFor(QGuiApplication::primaryScreen()->geometry().width());
  EXPECT_EQ(dialog->maximumSize(), QSize(sizes.imageWidth, sizes.imageHeight));
  EXPECT_EQ(part("gray_area_top")->minimumHeight(), sizes.grayAreaHeight);
  EXPECT_EQ(part("gray_area_bottom")->minimumHeight(), sizes.grayAreaHeight);

  dialog->show();
  const auto visible = [this] {
    std::vector<std::string> names;
    for (const char* name :
         {"step_one_current", "step_one_warning", "step_two_waiting", "step_two_current", "warning_container"}) {
      if (part(name)->isVisible()) names.push_back(name);
    }
    return names;
  };
  EXPECT_THAT(visible(), ElementsAre("step_one_current", "step_two_waiting"));
  for (int again = 0; again < 2; ++again) {
    dialog->ShowRetry();
    EXPECT_THAT(visible(), ElementsAre("step_one_warning", "step_two_current", "warning_container"));
  }
}

TEST(BarcodeSizesTest, AScreenOnTheBoundaryFallsIntoTheLowerRow) {
  const auto row = [](int width) {
    const BarcodeSizes sizes = barcodeSizesFor(width);
    return std::vector{sizes.imageWidth, sizes.imageHeight, sizes.grayAreaHeight};
  };
  for (const int width : {0, 640, 800}) EXPECT_THAT(row(width), ElementsAre(480, 340, 40));
  for (const int width : {801, 1280}) EXPECT_THAT(row(width), ElementsAre(640, 360, 50));
  for (const int width : {1281, 1600}) EXPECT_THAT(row(width), ElementsAre(720, 480, 60));
  for (const int width : {1601, 3840}) EXPECT_THAT(row(width), ElementsAre(960, 540, 70));
}

TEST_F(CameraBarcodeDialogTest, TellsFailingFromClosing) {
  const auto click = [](CameraBarcodeDialog& d, const char* name) { child<QPushButton>(d, kPrefix + name)->click(); };
  struct Case {
    const char* name;
    std::function<void(CameraBarcodeDialog&)> act;
    int answer;
  };
  const Case cases[] = {
      {"fail", [&](CameraBarcodeDialog& d) { click(d, "button_fail"); }, 2},
      {"fail, then Close", [&](CameraBarcodeDialog& d) { click(d, "button_fail"), d.Close(); }, 2},
      {"fail, then Escape", [&](CameraBarcodeDialog& d) { click(d, "button_fail"), pressKey(d, Qt::Key_Escape); }, 5},
      {"close button", [&](CameraBarcodeDialog& d) { click(d, "header_close"); }, 5},
      {"Escape", [](CameraBarcodeDialog& d) { pressKey(d, Qt::Key_Escape); }, 5},
      {"Close", [](CameraBarcodeDialog& d) { d.Close(); }, 5},
      {"close", [](CameraBarcodeDialog& d) { d.close(); }, 5},
      {"finished", [](CameraBarcodeDialog& d) { emit d.finished(0); }, 5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    result = 0;
    create();
    int closing = 0;
    QObject::connect(dialog.get(), &CameraBarcodeDialog::closing, [&] { ++closing; });
    dialog->show();
    c.act(*dialog);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(result, c.answer);
    EXPECT_EQ(dialog->result(), c.answer);
    EXPECT_GE(closing, 1);
  }
}

TEST_F(CameraBarcodeDialogTest, ArrowsOfAScreenReaderPassOverWhatIsHidden) {
  create();
  activate(*dialog);
  pressKey(*dialog, Qt::Key_Down);
  EXPECT_TRUE(part("button_fail")->hasFocus()) << "no screen reader";

  fakePlatform().narratorRuns = true;
  create();
  activate(*dialog);
  EXPECT_TRUE(part("header_label")->hasFocus());
  const std::vector<std::string> down = {"information_message", "camera_image", "fail_text_label",
                                         "button_fail",         "header_close", "header_label"};
  EXPECT_THAT(walk(Qt::Key_Down), testing::UnorderedElementsAreArray(down));

  dialog->ShowRetry();
  part("header_label")->setFocus();
  auto there = walk(Qt::Key_Down);
  EXPECT_THAT(there, testing::AllOf(testing::SizeIs(8), testing::Contains("warning_message"),
                                    testing::Contains("warning_message_small")));
  part("header_label")->setFocus();
  auto back = walk(Qt::Key_Up);
  // Both ways end at the label from which they began.
  EXPECT_EQ(there.back(), "header_label");
  EXPECT_EQ(back.back(), "header_label");
  std::reverse(back.begin(), back.end() - 1);
  EXPECT_EQ(there, back);

  part("warning_container")->hide();
  part("header_label")->setFocus();
  EXPECT_THAT(walk(Qt::Key_Down), testing::UnorderedElementsAreArray(down));
  part("header_label")->setFocus();
  EXPECT_THAT(walk(Qt::Key_Up), testing::UnorderedElementsAreArray(down));
}

TEST_F(CameraBarcodeDialogTest, StretchesAFrameAndDrawsTheViewfinder) {
  create();
  const BarcodeSizes sizes = barcodeSizesFor(QGuiApplication::primaryScreen()->geometry().width());
  QImage frame(4, 3, QImage::Format_RGB32);
  frame.fill(Qt::black);
  EXPECT_TRUE(dialog->LoadFrame(frame));
  QImage expected(sizes.imageWidth, sizes.imageHeight, QImage::Format_RGB32);
  expected.fill(Qt::black);
  drawViewfinder(expected, sizes.imageWidth < 720);
  auto* const view = child<QLabel>(*dialog, kPrefix + "camera_image");
  EXPECT_EQ(view->pixmap().toImage().convertToFormat(QImage::Format_RGB32), expected);

  EXPECT_TRUE(dialog->LoadFrame(QImage()));
  EXPECT_TRUE(view->pixmap().isNull());
}

TEST(ViewfinderTest, DrawsTheCornersOfASquareAndOfARectangle) {
  struct Marks {
    bool small;
    int x, y, endX, endY;
  };
  constexpr Marks kMarks[] = {
      {true, 100, 100, 70, 70}, {true, 230, 50, 205, 25}, {false, 130, 130, 100, 100}, {false, 340, 60, 310, 30}};
  const QColor gray(Qt::gray);
  const QColor black(Qt::black);
  for (const bool small : {true, false}) {
    QImage image(960, 540, QImage::Format_RGB32);
    image.fill(black);
    drawViewfinder(image, small);
    for (const Marks& marks : kMarks) {
      for (const QPoint side : {QPoint(1, 1), QPoint(1, -1), QPoint(-1, 1), QPoint(-1, -1)}) {
        const auto at = [&](int x, int y) { return image.pixelColor(479 + side.x() * x, 269 + side.y() * y); };
        const QColor drawn = marks.small == small ? gray : black;
        EXPECT_EQ(at(marks.x, marks.y), drawn);
        EXPECT_EQ(at(marks.endX, marks.y), drawn);
        EXPECT_EQ(at(marks.x, marks.endY), drawn);
        EXPECT_EQ(at(marks.x, marks.y + 1), drawn) << "five wide";
        EXPECT_EQ(at(marks.x, marks.y + 4), black);
        EXPECT_EQ(at(marks.endX - 4, marks.y), black) << "beyond the round end";
        EXPECT_EQ(at(marks.x, marks.endY - 4), black);
      }
    }
  }
}

}  // namespace
