#include "ui/camera_barcode_dialog.h"

#include <QLabel>
#include <QLayout>
#include <QScreen>

#include <tuple>

#include "ui/barcode_sizes.h"
#include "ui/viewfinder.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

using testing::ElementsAre;

using CameraBarcodeDialogTest = DialogTest<CameraBarcodeDialog>;

TEST_F(CameraBarcodeDialogTest, AlignsItsTextsAndNamesTheFailButton) {
  create();
  EXPECT_EQ(part<QLabel>("fail_text_label")->alignment(), Qt::AlignLeft);
  EXPECT_EQ(part<QLabel>("fail_text_label")->buddy(), part("button_fail"));
  EXPECT_EQ(part<QLabel>("information_message")->alignment(), Qt::AlignCenter);
  const QSpacerItem* const spacer = part("widget_footer")->layout()->itemAt(1)->spacerItem();
  ASSERT_NE(spacer, nullptr);
  EXPECT_EQ(spacer->sizeHint(), QSize(0, 32));
  EXPECT_EQ(spacer->expandingDirections(), Qt::Horizontal);
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
    return std::vector<int>{sizes.imageWidth, sizes.imageHeight, sizes.grayAreaHeight,
                            hasSmallViewfinder(sizes.imageWidth)};
  };
  for (const int width : {0, 640, 800}) EXPECT_THAT(row(width), ElementsAre(480, 340, 40, 1));
  for (const int width : {801, 1280}) EXPECT_THAT(row(width), ElementsAre(640, 360, 50, 1));
  for (const int width : {1281, 1600}) EXPECT_THAT(row(width), ElementsAre(720, 480, 60, 0));
  for (const int width : {1601, 3840}) EXPECT_THAT(row(width), ElementsAre(960, 540, 70, 0));
}

TEST_F(CameraBarcodeDialogTest, KeepsTheAnswerOfTheFailButtonUntilTheUserCloses) {
  const auto fail = [this] { part<QPushButton>("button_fail")->click(); };
  expectAnswer(2, fail);
  expectAnswer(2, [this] { pressKey(*dialog, Qt::Key_Return); });
  expectAnswer(2, [&] { fail(), dialog->Close(); });
  expectAnswer(5, [&] { fail(), pressKey(*dialog, Qt::Key_Escape); });
  expectAnswer(5, [&] { fail(), dialog->OnClosePushButtonClicked(); });
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
        const int cornerX = 479 + side.x() * x, tipX = 479 + side.x() * endX;
        const int cornerY = 269 + side.y() * y, tipY = 269 + side.y() * endY;
        const bool drawn = isSmall == small;
        EXPECT_EQ(image.pixelColor(cornerX, cornerY), drawn ? gray : black);
        const auto isEdge = [&](int right, int down) {
          const QColor color = image.pixelColor(right, down);
          return color != gray && color != black;
        };
        // Lines run between two pixels, and cover two pixels and a half to each side.
        for (const auto& [offset, within] : {std::pair(-4, false), {-3, drawn}, {2, drawn}, {3, false}}) {
          EXPECT_EQ(isEdge(cornerX + offset, (cornerY + tipY) / 2), within);
          EXPECT_EQ(isEdge((cornerX + tipX) / 2, cornerY + offset), within);
          // The tip looks to the middle.
          EXPECT_TRUE((offset > 0) == (side.x() > 0) || isEdge(tipX + offset, cornerY) == within);
          EXPECT_TRUE((offset > 0) == (side.y() > 0) || isEdge(cornerX, tipY + offset) == within);
        }
      }
    }
  }
}

}  // namespace
