#include "ui/camera_barcode_dialog.h"

#include <QLabel>
#include <QScreen>

#include <tuple>

#include "ui/barcode_sizes.h"
#include "ui/viewfinder.h"
#include "unit_tests/ui/dialog_helpers.h"
#include "unit_tests/ui/form_text.h"

namespace {

using testing::ElementsAre;

using CameraBarcodeDialogTest = DialogTest<CameraBarcodeDialog>;

TEST_F(CameraBarcodeDialogTest, HasItsForm) {
  create();
  EXPECT_EQ("\n" + describeForm(*dialog, kPrefix), R"(
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
  EXPECT_TRUE(part<QPushButton>("header_close")->isFlat());
  EXPECT_EQ(part<QLabel>("fail_text_label")->alignment(), Qt::AlignLeft);
  EXPECT_EQ(part<QLabel>("fail_text_label")->buddy(), part("button_fail"));
  EXPECT_EQ(part<QLabel>("information_message")->alignment(), Qt::AlignCenter);
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
  const std::pair<const char*, const char*> texts[] = {{"information_message", "<CAMERA_POINT_BARCODE_MESSAGE&>"},
                                                       {"warning_message", "<CAMERA_BARCODE_WARNING&>"},
                                                       {"warning_message_small", "<CAMERA_BARCODE_RETRY_MESSAGE&>"},
                                                       {"fail_text_label", "<CAMERA_FAIL_LABEL&>"}};
  for (const auto& [name, text] : texts) EXPECT_EQ(part<QLabel>(name)->text(), text);
  EXPECT_EQ(part<QPushButton>("button_fail")->text(), "<FAIL&>");
  EXPECT_EQ(part<QLabel>("fail_text_label")->buddy(), nullptr) << "its '&' is shown";
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

TEST_F(CameraBarcodeDialogTest, KeepsTheAnswerOfTheFailButtonUntilTheUserCloses) {
  const auto fail = [this] { part<QPushButton>("button_fail")->click(); };
  const std::pair<int, std::function<void()>> ways[] = {
      {2, fail},
      {2, [this] { pressKey(*dialog, Qt::Key_Return); }},
      {2, [&] { fail(), dialog->Close(); }},
      {5, [&] { fail(), pressKey(*dialog, Qt::Key_Escape); }},
      {5, [&] { fail(), dialog->OnClosePushButtonClicked(); }},
  };
  for (const auto& [answer, act] : ways) {
    result = 0;
    activate();
    int closing = 0;
    QObject::connect(dialog.get(), &CameraBarcodeDialog::closing, [&] { ++closing; });
    act();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(result, answer);
    EXPECT_EQ(dialog->result(), answer);
    EXPECT_GE(closing, 1);
  }
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
  auto* const view = part<QLabel>("camera_image");
  EXPECT_EQ(view->pixmap().toImage().convertToFormat(QImage::Format_RGB32), expected);

  EXPECT_TRUE(dialog->LoadFrame(QImage()));
  EXPECT_TRUE(view->pixmap().isNull());
}

TEST(ViewfinderTest, DrawsTheCornersOfASquareAndOfARectangle) {
  constexpr std::tuple<bool, int, int, int, int> kMarks[] = {
      {true, 100, 100, 70, 70}, {true, 230, 50, 205, 25}, {false, 130, 130, 100, 100}, {false, 340, 60, 310, 30}};
  const QColor gray(Qt::gray);
  const QColor black(Qt::black);
  for (const bool small : {true, false}) {
    QImage image(960, 540, QImage::Format_RGB32);
    image.fill(black);
    drawViewfinder(image, small);
    for (const auto& [isSmall, x, y, endX, endY] : kMarks) {
      for (const QPoint side : {QPoint(1, 1), QPoint(1, -1), QPoint(-1, 1), QPoint(-1, -1)}) {
        const auto at = [&](int right, int down) {
          return image.pixelColor(479 + side.x() * right, 269 + side.y() * down);
        };
        const QColor drawn = isSmall == small ? gray : black;
        EXPECT_EQ(at(x, y), drawn);
        EXPECT_EQ(at(endX, y), drawn);
        EXPECT_EQ(at(x, endY), drawn);
        EXPECT_EQ(at(x, y + 1), drawn) << "five wide";
        EXPECT_EQ(at(x, y + 4), black);
        EXPECT_EQ(at(endX - 4, y), black) << "beyond the round end";
        EXPECT_EQ(at(x, endY - 4), black);
      }
    }
  }
}

}  // namespace
