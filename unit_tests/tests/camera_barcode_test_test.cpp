#include "tests/camera_barcode_test.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>

#include "module/identifiers.h"
#include "tests/plausible_value.h"
#include "unit_tests/tests/camera_test_fixture.h"

namespace {

class CameraBarcodeTestTest : public CameraTestFixture {
 protected:
  /// The codes of codes.json by their places.
  static QImage code(int place) {
    return QImage(QStringLiteral(CODES_FOLDER "/code-0-%1.png").arg(place)).convertToFormat(QImage::Format_RGB32);
  }
  static constexpr int kPlausible = 0;
  static constexpr int kWithHyphen = 1;
  static std::vector<Told> untilPictureAnd(std::vector<Told> more) {
    std::vector<Told> all = {progress(0), progress(30), progress(50), progress(50)};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  TestResult run() { return test.run(&context); }

  CameraBarcodeTest test{kBarcodeTestId};
};

struct Plausibility {
  QString text;
  bool plausible;
};

class PlausibleValue : public testing::TestWithParam<Plausibility> {};

}  // namespace

TEST_P(PlausibleValue, HoldsOneTo60DigitsAndLetters) {
  EXPECT_EQ(isPlausibleValue(GetParam().text), GetParam().plausible) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, PlausibleValue,
                         testing::Values(Plausibility{"", false}, Plausibility{"0", true}, Plausibility{"azAZ09", true},
                                         Plausibility{QString(60, 'x'), true}, Plausibility{QString(61, 'x'), false},
                                         Plausibility{"AB-12", false}, Plausibility{"AB 12", false},
                                         Plausibility{"AB12\n", false},
                                         Plausibility{QString::fromUtf8("M\u00fcller"), false},
                                         Plausibility{"a_b", false}));

TEST_F(CameraBarcodeTestTest, NeedsTheSameServicesAndTakesNoSettings) {
  EXPECT_EQ(test.run(nullptr), kTestNotSupported);
  context.withReporter = false;
  EXPECT_EQ(run(), kTestNotSupported);
  context.withReporter = true;
  context.ready = false;
  EXPECT_EQ(run(), kTestNotPerformed);
  context.ready = true;
  FakeOtherComponent other;
  context.component = &other;
  EXPECT_EQ(run(), kTestNotPerformed);
  EXPECT_EQ(context.told.back().text,
            "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED");
  EXPECT_TRUE(test.configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", "abc"}}}}, 0));
}

TEST_F(CameraBarcodeTestTest, FailuresOfTheCapturerAreMapped) {
  for (const auto& [status, result, told] : std::vector<std::tuple<CaptureStatus, TestResult, std::vector<Told>>>{
           {CaptureCannotOpenDevice, 4, {FINAL_REPORT("CANNOT_ACCESS_DEVICE")}},
           {CaptureInitFailed, 5, {FINAL_REPORT("FAILED_TO_INITIALIZE")}},
           {CaptureAlreadyRunning, 5, {}}}) {
    expectFailedStart(status);
    context.told = {};
    EXPECT_EQ(run(), result);
    std::vector<Told> expected = {progress(0), progress(30)};
    expected.insert(expected.end(), told.begin(), told.end());
    EXPECT_EQ(context.told, expected);
  }
}

TEST_F(CameraBarcodeTestTest, AFrameFailureInterruptsWithItsKeyAndATimeoutIsAPlainOne) {
  for (const auto& [status, key] : std::vector<std::pair<CaptureStatus, std::string>>{
           {CaptureDeviceRemoved, "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"},
           {CaptureTimedOut, "FAILED_TO_CAPTURE"},
           {CaptureFailed, "FAILED_TO_CAPTURE"}}) {
    testing::Mock::VerifyAndClear(&camera.capturer);
    expectCapture();
    context.told = {};
    onFrame = [&, failure = status] { return failure; };
    EXPECT_EQ(run(), kTestCancelled);
    EXPECT_EQ(context.told, untilPictureAnd({FINAL_REPORT(key), message("(stopped)"), progress(100)}));
  }
}

TEST_F(CameraBarcodeTestTest, EventsComeBeforeCancellationBeforeTheStatus) {
  expectCapture();
  onFrame = [&] {
    context.event = 1;
    context.cancelled = true;
    return CaptureDeviceRemoved;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told,
            untilPictureAnd({FINAL_REPORT("TEST_ABORTED_BY_EVENT"), message("(stopped)"), progress(100)}));

  context.event = 0;
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told.back(), progress(100));
}

TEST_F(CameraBarcodeTestTest, APlausibleValueIsReportedAsDecodedAndShownMirrored) {
  frame = code(kPlausible);
  frame.setPixelColor(0, 0, Qt::red);
  ASSERT_FALSE(frame.isNull());
  expectCapture();
  QImage shown;
  fakeHostServices().onSleep = [&](std::uint32_t) {
    shown = openDialog()->findChild<QLabel*>("camera_barcode_test_camera_image")->pixmap().toImage();
  };
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(context.told,
            untilPictureAnd({message("(stopped)"), FINAL_REPORT("BARCODE_VALUE Serial123abc"), progress(100)}));
  EXPECT_EQ(shown.pixelColor(shown.width() - 1, 0), QColor(Qt::red));
  EXPECT_EQ(fakeHostServices().sleeps, std::vector<std::uint32_t>{5});
}

TEST_F(CameraBarcodeTestTest, AValueWinsOverAButtonInTheSamePass) {
  frame = code(kPlausible);
  expectCapture();
  fakeHostServices().onSleep = [&](std::uint32_t) { openDialog()->close(); };
  EXPECT_EQ(run(), kTestPassed);
}

TEST_F(CameraBarcodeTestTest, TheFailButtonFailsAndClosingCancels) {
  expectCapture();
  fakeHostServices().onSleep = [&](std::uint32_t) {
    openDialog()->findChild<QPushButton*>("camera_barcode_test_button_fail")->click();
  };
  EXPECT_EQ(run(), kTestFailed);
  EXPECT_EQ(context.told,
            untilPictureAnd({message("(stopped)"), FINAL_REPORT("BARCODE_FAIL_SCAN_MESSAGE"), progress(100)}));

  testing::Mock::VerifyAndClear(&camera.capturer);
  expectCapture();
  context.told = {};
  fakeHostServices().onSleep = [&](std::uint32_t) { openDialog()->close(); };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPictureAnd({message("(stopped)"), progress(100)}));
}

TEST_F(CameraBarcodeTestTest, AnImplausibleValueGetsOneRetryAfterAPause) {
  frame = code(kWithHyphen);
  expectCapture();
  QElapsedTimer clock;
  clock.start();
  bool warned = false;
  fakeHostServices().onSleep = [&](std::uint32_t) {
    warned = openDialog()->findChild<QWidget*>("camera_barcode_test_warning_container")->isVisible();
    // The value that ends the test counts more than a button pressed in the same pass.
    if (warned) openDialog()->findChild<QPushButton*>("camera_barcode_test_button_fail")->click();
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(framesTaken, 2);
  EXPECT_TRUE(warned);
  EXPECT_GE(clock.elapsed(), 5000);
  EXPECT_EQ(context.told,
            untilPictureAnd({message("(stopped)"), FINAL_REPORT("BARCODE_CANCELED_DUE_INVALID_INPUT"), progress(100)}));

  // The next run starts afresh: a closed dialog is not blamed on the codes of the run before.
  testing::Mock::VerifyAndClear(&camera.capturer);
  expectCapture();
  frame.fill(Qt::gray);
  context.told = {};
  fakeHostServices().onSleep = [&](std::uint32_t) { openDialog()->close(); };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPictureAnd({message("(stopped)"), progress(100)}));
}
