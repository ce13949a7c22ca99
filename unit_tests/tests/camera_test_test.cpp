// What holds for both camera tests.

#include "tests/camera_test.h"

#include <string>
#include <tuple>

#include "unit_tests/tests/camera_test_fixture.h"

namespace {

struct CameraRun : public CameraTestFixture, public testing::WithParamInterface<bool> {
  CameraRun() : CameraTestFixture(GetParam()) { setTimeout("0"); }
};

INSTANTIATE_TEST_SUITE_P(, CameraRun, testing::Bool(),
                         [](const auto& parameter) { return parameter.param ? "Capture" : "Barcode"; });

TEST_P(CameraRun, EveryMissingServiceMeansNotSupportedAndAHostThatIsNotReadyIsNotBothered) {
  EXPECT_TRUE(test->isImplemented());
  EXPECT_EQ(test->run(nullptr), 6u);
  for (bool* service : {&context.withReporter, &context.withMessageList, &context.withEventSource}) {
    *service = false;
    EXPECT_EQ(run(), 6u);
    *service = true;
  }
  context.component = nullptr;
  EXPECT_EQ(run(), 6u);
  context.component = &camera;
  context.ready = false;
  EXPECT_EQ(run(), 3u);
  EXPECT_TRUE(context.told.empty());
}

TEST_P(CameraRun, AnotherKindOfComponentIsNotTested) {
  FakeOtherComponent other;
  context.component = &other;
  EXPECT_FALSE(test->isApplicable(&other));
  EXPECT_FALSE(test->isApplicable(nullptr));
  EXPECT_EQ(run(), 3u);
  EXPECT_EQ(
      context.told,
      " 0" + finalReport(
                 "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED"));
}

TEST_P(CameraRun, EveryEventBut0And4ComesBeforeACancellation) {
  for (int event = 0; event < 256; ++event) {
    EXPECT_EQ(test->isAbortEvent(static_cast<std::uint8_t>(event)), event != 0 && event != 4) << event;
  }
  context.cancelled = true;
  context.event = 0x101;  // only the low 8 bits count
  EXPECT_EQ(run(), 4u);
  EXPECT_EQ(context.told, " 0" + finalReport("TEST_ABORTED_BY_EVENT"));
  context.event = 0x104;
  EXPECT_EQ(run(), 4u);
  EXPECT_EQ(context.told, " 0 100");
}

TEST_P(CameraRun, AFailedStartIsReportedAndTheCapturerStopped) {
  const std::tuple<CaptureStatus, TestResult, std::string> failures[] = {{114, 4, finalReport("CANNOT_ACCESS_DEVICE")},
                                                                         {115, 5, finalReport("FAILED_TO_INITIALIZE")},
                                                                         {1, 5, finalReport("FAILED_TO_INITIALIZE")},
                                                                         {117, 5, ""},
                                                                         {38, 5, ""}};
  for (const auto& [status, result, told] : failures) {
    capturer.startStatus = status;
    EXPECT_EQ(run(), result);
    EXPECT_EQ(context.told, untilStart() + told + " (stopped)");
  }
}

TEST_P(CameraRun, WithoutAFormatThereIsNoPicture) {
  capturer.hasFormat = false;
  EXPECT_EQ(run(), 5u);
  EXPECT_EQ(context.told, untilStart() + " 50" + finalReport("FAILED_TO_INITIALIZE") + " (stopped) 100");
  EXPECT_EQ(context.componentQueries, 2) << "the camera is asked for once after the check of the services";
}

TEST_P(CameraRun, AFailedFrameEndsThePictureWithItsKey) {
  const std::tuple<CaptureStatus, TestResult, const char*, const char*> failures[] = {
      {38, 4, "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED", "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"},
      {50, 5, "FAILED_TO_CAPTURE_DUE_TIMEOUT", "FAILED_TO_CAPTURE"},
      {1, 4, "FAILED_TO_CAPTURE", "FAILED_TO_CAPTURE"},
      {0xC00D36B4, 4, "FAILED_TO_CAPTURE", "FAILED_TO_CAPTURE"}};
  setTimeout("20");
  for (const auto& [status, captureResult, captureKey, barcodeKey] : failures) {
    capturer.framesTaken = 0;
    capturer.onFrame = [&, ended = status] { return capturer.framesTaken < 3 ? CaptureOk : ended; };
    EXPECT_EQ(run(), isCapture ? captureResult : 4);
    EXPECT_EQ(context.told, untilPicture() + finalReport(isCapture ? captureKey : barcodeKey) + " (stopped) 100");
    EXPECT_EQ(framesShown, 2);
  }
}

TEST_P(CameraRun, AnEventOrACancellationEndsThePictureBeforeTheNextFrame) {
  setTimeout("20");
  afterFrame([&] { context.event = 8; });
  EXPECT_EQ(run(), 4u);
  EXPECT_EQ(context.told, untilPicture() + finalReport("TEST_ABORTED_BY_EVENT") + " (stopped) 100");
  context.event = 0;
  afterFrame([&] { context.cancelled = true; });
  EXPECT_EQ(run(), 4u);
  EXPECT_EQ(context.told, untilPicture() + " 100 (stopped) 100");
  EXPECT_EQ(capturer.framesTaken, 2);
}

/// From one call on, host and camera throw at every call: while the run is left, too.
TEST_P(CameraRun, LeavesNothingRunningWhereverTheHostThrows) {
  struct HostError {};
  int calls = 0;
  int failing = 0;
  const auto told = [&](const char* text) { return QByteArray::fromStdString(context.told).count(text); };
  const auto call = [&] {
    if (++calls >= failing) throw HostError();
  };
  context.onCall = capturer.onCall = call;
  afterFrame(call);
  capturer.onFrame = [&] { return call(), CaptureOk; };
  capturer.frame = code(kPlausible);
  for (const CaptureStatus status : {CaptureOk, CaptureInitFailed}) {
    capturer.startStatus = status;
    failing = 0;
    for (bool thrown = true; thrown;) {
      calls = 0;
      ++failing;
      try {
        run();
        thrown = false;
      } catch (const HostError&) {
      }
      EXPECT_EQ(told("(stopped)"), told("(started)")) << "call " << failing;
      EXPECT_EQ(openDialog(), nullptr) << "call " << failing;
    }
    EXPECT_EQ(told("(started)"), 1) << "the last run, in which nothing was thrown";
    EXPECT_GT(failing, 15);
  }
}

}  // namespace
