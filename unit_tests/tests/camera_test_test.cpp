// What holds for both camera tests.

#include "tests/camera_test.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include <gmock/gmock.h>

#include "module/test_with_device_hint.h"
#include "unit_tests/fakes/fault_rounds.h"
#include "unit_tests/tests/camera_test_fixture.h"

namespace {

struct CameraRun : public CameraTestFixture, public testing::WithParamInterface<bool> {
  CameraRun() : CameraTestFixture(GetParam()) { setTimeout("0"); }
  void tryFaults(std::initializer_list<Fault> kinds);
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

/// Whatever the host, its camera or the memory does at one call, or from it on. Left out are the memory of Qt's
/// libraries and that of the decoder, which runs between a pause and the host's next call.
void CameraRun::tryFaults(std::initializer_list<Fault> kinds) {
  std::unique_ptr<::Test> hinted = std::make_unique<TestWithDeviceHint<CameraBarcodeTest>>(kBarcodeTestId);
  if (isCapture) hinted = std::make_unique<TestWithDeviceHint<CameraCaptureTest>>(kCaptureTestId);
  EXPECT_TRUE(hinted->configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", "0"}}}}, 0));
  const TestResult good = isCapture ? 0 : 1;
  constexpr TestResult kThrew = 100;
  using Results = std::set<TestResult>;
  const std::map<Fault, Results> expected = {{Fault::kThrown, {kThrew}},
                                             // The list of monitors may go without.
                                             {Fault::kMemory, {kThrew, good}},
                                             // Without the hint; no camera; no service any more.
                                             {Fault::kNull, {1, 3, 6}},
                                             {Fault::kCancelled, {4}},
                                             {Fault::kEvent, {4}},
                                             {Fault::kNoDialog, {isCapture ? 0u : 4u}}};
  const std::map<std::string, TestResult> expectedOfStatus = {
      {"start", 4}, {"getFrame", 4}, {"getFrameFormat", 5}, {"stop", good}};

  std::optional<FaultPause> decoder;
  context.onCall = [&] { decoder.reset(); };
  afterFrame([&] {
    decoder.emplace();
    if (isCapture) return;
    if (openDialog()) {
      pressFail();
    } else {
      context.cancelled = true;
    }
  });
  TestResult result = 0;
  const auto run = [&] {
    context.cancelled = false;
    context.told.clear();
    result = kThrew;
    result = hinted->run(&context);
  };
  FaultRounds rounds;
  rounds.forEach(kinds, [&] {
    rounds.attempt(run);
    decoder.reset();
    const bool ofStatus = rounds.kind == Fault::kStatus;
    if (rounds.name.empty()) {
      EXPECT_EQ(result, good);
    } else if (ofStatus) {
      EXPECT_EQ(result, expectedOfStatus.at(rounds.name));
    } else {
      EXPECT_THAT(expected.at(rounds.kind), testing::Contains(result));
    }
    EXPECT_EQ(capturer.started, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(QApplication::topLevelWidgets(), testing::IsEmpty());
    run();
    EXPECT_EQ(result, good) << "afterwards";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
}

TEST_P(CameraRun, WhateverTheHostDoesEndsTheRunWithItsResultAndLeavesNothingRunning) {
  tryFaults({Fault::kThrown, Fault::kNull, Fault::kStatus, Fault::kCancelled, Fault::kEvent, Fault::kNoDialog});
}

TEST_P(CameraRun, WantOfMemoryEndsTheRunAndLeavesNothingRunning) {
  tryFaults({Fault::kMemory});
}

}  // namespace
