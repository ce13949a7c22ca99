#include "tests/camera_capture_test.h"

#include <QLabel>

#include <stdexcept>

#include "module/identifiers.h"
#include "unit_tests/tests/camera_test_fixture.h"

namespace {

using testing::Return;

class CameraCaptureTestTest : public CameraTestFixture {
 protected:
  /// The reports of a run up to the first frame.
  static std::vector<Told> untilPicture() {
    return {progress(0), progress(1), progress(30), progress(50), progress(50)};
  }
  static std::vector<Told> untilPictureAnd(std::vector<Told> more) {
    std::vector<Told> all = untilPicture();
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  TestResult run() { return test.run(&context); }
  void setTimeout(const std::string& seconds) { test.configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", seconds}}}}, 0); }

  CameraCaptureTest test{kCaptureTestId};
};

struct QuestionCase {
  std::uint32_t answer;
  TestResult result;
  std::vector<Told> told;
};

class CameraCaptureTestQuestion : public CameraCaptureTestTest, public testing::WithParamInterface<QuestionCase> {};

struct FrameFailure {
  CaptureStatus status;
  TestResult result;
  std::string key;
};

class CameraCaptureTestFrameFailure : public CameraCaptureTestTest, public testing::WithParamInterface<FrameFailure> {};

struct StartFailure {
  CaptureStatus status;
  TestResult result;
  std::vector<Told> told;
};

class CameraCaptureTestStartFailure : public CameraCaptureTestTest, public testing::WithParamInterface<StartFailure> {};

struct Settings {
  TestSettings settings;
  int frames;
};

class CameraCaptureTestSettings : public CameraCaptureTestTest, public testing::WithParamInterface<Settings> {};

}  // namespace

TEST_F(CameraCaptureTestTest, EveryMissingServiceMeansNotSupported) {
  EXPECT_EQ(test.run(nullptr), kTestNotSupported);
  for (bool* service : {&context.withReporter, &context.withMessageList, &context.withEventSource}) {
    *service = false;
    EXPECT_EQ(run(), kTestNotSupported);
    *service = true;
  }
  context.component = nullptr;
  EXPECT_EQ(run(), kTestNotSupported);
  EXPECT_TRUE(context.told.empty());
}

TEST_F(CameraCaptureTestTest, AHostThatIsNotReadyIsNotBothered) {
  context.ready = false;
  EXPECT_EQ(run(), kTestNotPerformed);
  EXPECT_TRUE(context.told.empty());
}

TEST_F(CameraCaptureTestTest, AnotherKindOfComponentIsNotTested) {
  FakeOtherComponent other;
  context.component = &other;
  EXPECT_FALSE(test.isApplicable(&other));
  EXPECT_FALSE(test.isApplicable(nullptr));
  EXPECT_EQ(run(), kTestNotPerformed);
  const std::vector<Told> expected = {
      progress(0),
      FINAL_REPORT(
          "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED")};
  EXPECT_EQ(context.told, expected);
}

TEST_F(CameraCaptureTestTest, EveryEventBut0And4Aborts) {
  for (int event = 0; event < 256; ++event) {
    EXPECT_EQ(test.isAbortEvent(static_cast<std::uint8_t>(event)), event != 0 && event != 4) << event;
  }
  context.event = 0x101;  // only the low 8 bits count
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, (std::vector<Told>{progress(0), FINAL_REPORT("TEST_ABORTED_BY_EVENT")}));
}

TEST_F(CameraCaptureTestTest, CancelledBeforeTheStartTouchesNoCamera) {
  context.cancelled = true;
  context.event = 0x100;
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, (std::vector<Told>{progress(0), progress(100)}));
}

TEST_F(CameraCaptureTestTest, AnUnconfirmedMessageEndsTheTestWithoutTheCamera) {
  initialAnswer = 0;
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, (std::vector<Told>{progress(0), progress(1), progress(100)}));
  EXPECT_EQ(context.requests, std::vector<std::string>{"INITIAL_MESSAGE"});
}

TEST_F(CameraCaptureTestTest, AnEventDuringTheMessageIsReportedAfterIt) {
  context.onSubmit = [&](InputRequest& request) {
    EXPECT_EQ(request.firstText, "CAMERA_CAPTURE_TEST");
    EXPECT_EQ(request.extra, reinterpret_cast<std::uintptr_t>(static_cast<TestExecutionContext*>(&context)));
    context.event = 1;
    request.answer = 0;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told,
            (std::vector<Told>{progress(0), progress(1), progress(100), FINAL_REPORT("TEST_ABORTED_BY_EVENT")}));
}

TEST_P(CameraCaptureTestStartFailure, IsReportedAndTheCapturerStopped) {
  expectFailedStart(GetParam().status);
  EXPECT_EQ(run(), GetParam().result);
  std::vector<Told> expected = {progress(0), progress(1), progress(30)};
  expected.insert(expected.end(), GetParam().told.begin(), GetParam().told.end());
  EXPECT_EQ(context.told, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, CameraCaptureTestStartFailure,
    testing::Values(StartFailure{CaptureCannotOpenDevice, 4, {FINAL_REPORT("CANNOT_ACCESS_DEVICE")}},
                    StartFailure{CaptureInitFailed, 5, {FINAL_REPORT("FAILED_TO_INITIALIZE")}},
                    StartFailure{CaptureFailed, 5, {FINAL_REPORT("FAILED_TO_INITIALIZE")}},
                    StartFailure{CaptureAlreadyRunning, 5, {}}));

TEST_F(CameraCaptureTestTest, WithoutAFormatThereIsNoPicture) {
  EXPECT_CALL(camera.capturer, start()).WillOnce(Return(CaptureOk));
  EXPECT_CALL(camera.capturer, getFrameFormat(testing::_)).WillOnce(Return(1));
  EXPECT_CALL(camera.capturer, stop()).WillOnce(Return(CaptureOk));
  EXPECT_EQ(run(), kTestError);
  EXPECT_EQ(context.told, (std::vector<Told>{progress(0), progress(1), progress(30), progress(50),
                                             FINAL_REPORT("FAILED_TO_INITIALIZE"), progress(100)}));
}

TEST_P(CameraCaptureTestFrameFailure, EndsThePictureWithoutAQuestion) {
  expectCapture();
  onFrame = [&] { return framesTaken < 3 ? CaptureOk : GetParam().status; };
  EXPECT_EQ(run(), GetParam().result);
  EXPECT_EQ(context.told, untilPictureAnd({FINAL_REPORT(GetParam().key), message("(stopped)"), progress(100)}));
  EXPECT_EQ(context.requests, (std::vector<std::string>{"INITIAL_MESSAGE", ""}));
}

INSTANTIATE_TEST_SUITE_P(Statuses, CameraCaptureTestFrameFailure,
                         testing::Values(FrameFailure{CaptureDeviceRemoved, 4, "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED"},
                                         FrameFailure{CaptureTimedOut, 5, "FAILED_TO_CAPTURE_DUE_TIMEOUT"},
                                         FrameFailure{CaptureFailed, 4, "FAILED_TO_CAPTURE"},
                                         FrameFailure{CaptureNotRunning, 4, "FAILED_TO_CAPTURE"},
                                         FrameFailure{0xC00D36B4, 4, "FAILED_TO_CAPTURE"}));

TEST_P(CameraCaptureTestQuestion, DecidesTheResultAfterTheCameraWasStopped) {
  expectCapture();
  setTimeout("0");
  questionAnswer = GetParam().answer;
  EXPECT_EQ(run(), GetParam().result);
  std::vector<Told> more = {message("(stopped)"), progress(80)};
  more.insert(more.end(), GetParam().told.begin(), GetParam().told.end());
  more.insert(more.end(), {progress(100), progress(100)});
  EXPECT_EQ(context.told, untilPictureAnd(more));
  EXPECT_EQ(context.requests, (std::vector<std::string>{"INITIAL_MESSAGE", "", "CHECK_CAMERA_IMAGE"}));
  EXPECT_EQ(framesTaken, 1);
}

INSTANTIATE_TEST_SUITE_P(Answers, CameraCaptureTestQuestion,
                         testing::Values(QuestionCase{3, 0, {}},
                                         QuestionCase{4, 1, {FINAL_REPORT("CAMERA_RESULT_FAILED")}},
                                         QuestionCase{0, 4, {}}, QuestionCase{1, 4, {}}));

TEST_F(CameraCaptureTestTest, AnEventOrACancellationDuringTheQuestionOverridesTheAnswer) {
  expectCapture();
  setTimeout("0");
  onQuestion = [&] { context.event = 2; };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPictureAnd({message("(stopped)"), progress(80), FINAL_REPORT("TEST_ABORTED_BY_EVENT"),
                                           progress(100), progress(100)}));

  context.event = 0;
  context.told.clear();
  onQuestion = [&] { context.cancelled = true; };
  testing::Mock::VerifyAndClear(&camera.capturer);
  expectCapture();
  EXPECT_EQ(run(), kTestCancelled);
}

TEST_F(CameraCaptureTestTest, AnEventOrACancellationEndsThePicture) {
  expectCapture();
  onFrame = [&] {
    if (framesTaken == 2) context.event = 8;
    return CaptureOk;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told,
            untilPictureAnd({FINAL_REPORT("TEST_ABORTED_BY_EVENT"), message("(stopped)"), progress(100)}));
  EXPECT_EQ(framesTaken, 2);

  context.event = 0;
  context.told.clear();
  framesTaken = 0;
  onFrame = [&] {
    if (framesTaken == 2) context.cancelled = true;
    return CaptureOk;
  };
  testing::Mock::VerifyAndClear(&camera.capturer);
  expectCapture();
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPictureAnd({progress(100), message("(stopped)"), progress(100)}));
}

TEST_F(CameraCaptureTestTest, ClosingTheDialogLeadsToTheQuestion) {
  expectCapture();
  fakeHostServices().onSleep = [&](std::uint32_t) {
    if (framesTaken == 4) openDialog()->close();
  };
  questionAnswer = InputRequest::kNo;
  EXPECT_EQ(run(), kTestFailed);
  EXPECT_EQ(framesTaken, 4);
  EXPECT_EQ(fakeHostServices().sleeps, std::vector<std::uint32_t>(4, 30));
  EXPECT_EQ(openDialog(), nullptr);
}

TEST_F(CameraCaptureTestTest, TheDialogShowsTheFrames) {
  expectCapture();
  QImage shown;
  fakeHostServices().onSleep = [&](std::uint32_t) {
    shown = openDialog()->findChild<QLabel*>("camera_capture_test_lb_image_view")->pixmap().toImage();
  };
  setTimeout("0");
  frame.fill(QColor(10, 200, 30));
  run();
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(10, 200, 30));
}

TEST_P(CameraCaptureTestSettings, SayHowLongThePictureIsShown) {
  expectCapture();
  setTimeout("3");  // an earlier setting, which a later one replaces
  EXPECT_TRUE(test.configure(GetParam().settings, 0));
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(framesTaken, GetParam().frames);
}

// Each frame takes the 30 ms of its pause: 20 s are over with the 667th.
INSTANTIATE_TEST_SUITE_P(
    Maps, CameraCaptureTestSettings,
    testing::Values(Settings{{}, 667}, Settings{{{"ORCA", {{"ORCA_POPUP_TIMEOUT", "1"}}}}, 667},
                    Settings{{{"OTHER", {{"ORCA_TEST_TIMEOUT", "1"}}}}, 667},
                    Settings{{{"ORCA", {{"ORCA_TEST_TIMEOUT", " +1 second"}}}}, 34},
                    Settings{{{"ORCA", {{"ORCA_TEST_TIMEOUT", "9"}, {"ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST", "0"}}}},
                             1}));

TEST_F(CameraCaptureTestTest, ABadTimeoutIsRefusedAndTheOldOneKept) {
  setTimeout("1");
  const auto errorOf = [&](const std::string& value) -> std::string {
    try {
      setTimeout(value);
    } catch (const std::invalid_argument& error) {
      return std::string("invalid: ") + error.what();
    } catch (const std::out_of_range& error) {
      return std::string("range: ") + error.what();
    }
    return "";
  };
  EXPECT_EQ(errorOf("abc"), "invalid: invalid stoul argument");
  EXPECT_EQ(errorOf(""), "invalid: invalid stoul argument");
  EXPECT_EQ(errorOf("4294967296"), "range: stoul argument out of range");
  EXPECT_EQ(errorOf("99999999999999999999"), "range: stoul argument out of range");
  expectCapture();
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(framesTaken, 34);

  EXPECT_EQ(errorOf("4294967295"), "");
  EXPECT_EQ(errorOf("-1"), "");
}
