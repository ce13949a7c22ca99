#include "tests/camera_barcode_test.h"

#include <QElapsedTimer>
#include <QLabel>

#include "tests/barcode_steps.h"
#include "unit_tests/tests/camera_test_fixture.h"

namespace {

struct BarcodeRun : public CameraTestFixture {
  BarcodeRun() : CameraTestFixture(false) {}
};

}  // namespace

TEST(PlausibleValue, HoldsOneTo60DigitsAndLetters) {
  const std::pair<QString, bool> texts[] = {{"", false},
                                            {"0", true},
                                            {"azAZ09", true},
                                            {QString(60, 'x'), true},
                                            {QString(61, 'x'), false},
                                            {"AB-12", false},
                                            {"AB 12", false},
                                            {"AB12\n", false},
                                            {QString::fromUtf8("M\u00fcller"), false},
                                            {"a_b", false}};
  for (const auto& [text, plausible] : texts) EXPECT_EQ(isPlausibleValue(text), plausible) << text.toStdString();
}

TEST_F(BarcodeRun, AFrameThatFailsIsJudgedByTheEventThenTheCancellationThenItsStatus) {
  for (const bool withEvent : {true, false}) {
    context.event = 0;
    context.cancelled = false;
    capturer.onFrame = [&] {
      context.event = withEvent;
      context.cancelled = true;
      return CaptureDeviceRemoved;
    };
    EXPECT_EQ(run(), kTestCancelled);
    const std::string told = withEvent ? finalReport("TEST_ABORTED_BY_EVENT") : " 100";
    EXPECT_EQ(context.told, untilPicture() + told + " (stopped) 100");
  }
}

TEST_F(BarcodeRun, APlausibleValueIsReportedAsDecodedShownMirroredAndWinsOverAButton) {
  capturer.frame = code(kPlausible);
  ASSERT_FALSE(capturer.frame.isNull());
  capturer.frame.setPixelColor(0, 0, Qt::red);
  QImage shown;
  afterFrame([&] {
    shown = openDialog()->findChild<QLabel*>("camera_barcode_test_camera_image")->pixmap().toImage();
    pressFail();
  });
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(context.told, untilPicture() + " (stopped)" + finalReport("BARCODE_VALUE Serial123abc") + " 100");
  EXPECT_EQ(shown.pixelColor(shown.width() - 1, 0), QColor(Qt::red));
  EXPECT_EQ(fakeHostServices().sleeps, std::vector<std::uint32_t>{5});
}

TEST_F(BarcodeRun, TheFailButtonFailsAndClosingCancels) {
  afterFrame(pressFail);
  EXPECT_EQ(run(), kTestFailed);
  EXPECT_EQ(context.told, untilPicture() + " (stopped)" + finalReport("BARCODE_FAIL_SCAN_MESSAGE") + " 100");

  afterFrame([] { openDialog()->close(); });
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPicture() + " (stopped) 100");
  EXPECT_EQ(capturer.framesTaken, 2);
}

TEST_F(BarcodeRun, AnImplausibleValueGetsOneRetryAfterAPause) {
  capturer.frame = code(kWithHyphen);
  QElapsedTimer clock;
  clock.start();
  bool warned = false;
  afterFrame([&] {
    warned = openDialog()->findChild<QWidget*>("camera_barcode_test_warning_container")->isVisible();
    // The value that ends the test counts more than a button pressed in the same pass.
    if (warned) pressFail();
  });
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(capturer.framesTaken, 2);
  EXPECT_TRUE(warned);
  EXPECT_GE(clock.elapsed(), 5000);
  EXPECT_EQ(context.told, untilPicture() + " (stopped)" + finalReport("BARCODE_CANCELED_DUE_INVALID_INPUT") + " 100");

  // The next run starts afresh: its first such value has its pause, even with the dialog closed, which then decides.
  clock.start();
  afterFrame([] { openDialog()->close(); });
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_GE(clock.elapsed(), 5000);
  EXPECT_EQ(context.told, untilPicture() + " (stopped) 100");
}
