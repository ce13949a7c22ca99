#include "tests/camera_capture_test.h"

#include <QLabel>

#include <stdexcept>

#include "module/identifiers.h"
#include "unit_tests/tests/camera_test_fixture.h"

namespace {

class CaptureRun : public CameraTestFixture {
 protected:
  static std::vector<Told> untilPictureAnd(std::vector<Told> more) {
    return joined(
        {{progress(0), progress(1), progress(30), message("(started)"), progress(50), progress(50)}, std::move(more)});
  }
  TestResult run() {
    context.told.clear();
    return test.run(&context);
  }
  void setTimeout(const std::string& seconds) { test.configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", seconds}}}}, 0); }

  CameraCaptureTest test{kCaptureTestId};
};

struct QuestionCase {
  std::uint32_t answer;
  TestResult result;
  std::vector<Told> told;
};

class CaptureRunQuestion : public CaptureRun, public testing::WithParamInterface<QuestionCase> {};

struct Settings {
  TestSettings settings;
  int frames;
};

class CaptureRunSettings : public CaptureRun, public testing::WithParamInterface<Settings> {};

}  // namespace

TEST_F(CaptureRun, AnUnconfirmedMessageEndsTheTestWithoutTheCameraAndAnEventIsReportedAfterIt) {
  initialAnswer = 0;
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, (std::vector<Told>{progress(0), progress(1), progress(100)}));
  EXPECT_EQ(context.requests, std::vector<std::string>{"INITIAL_MESSAGE"});

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

TEST_P(CaptureRunQuestion, DecidesTheResultAfterTheCameraWasStopped) {
  setTimeout("0");
  questionAnswer = GetParam().answer;
  EXPECT_EQ(run(), GetParam().result);
  EXPECT_EQ(
      context.told,
      untilPictureAnd(joined({{message("(stopped)"), progress(80)}, GetParam().told, {progress(100), progress(100)}})));
  EXPECT_EQ(context.requests, (std::vector<std::string>{"INITIAL_MESSAGE", "", "CHECK_CAMERA_IMAGE"}));
  EXPECT_EQ(capturer.framesTaken, 1);
}

INSTANTIATE_TEST_SUITE_P(Answers, CaptureRunQuestion,
                         testing::Values(QuestionCase{3, 0, {}},
                                         QuestionCase{4, 1, {FINAL_REPORT("CAMERA_RESULT_FAILED")}},
                                         QuestionCase{0, 4, {}}, QuestionCase{1, 4, {}}));

TEST_F(CaptureRun, AnEventOrACancellationDuringTheQuestionOverridesTheAnswer) {
  setTimeout("0");
  onQuestion = [&] { context.cancelled = true; };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told.back(), progress(100));

  context.cancelled = false;
  onQuestion = [&] { context.event = 2; };
  const InputRequest* question = nullptr;
  context.onSubmit = [&](InputRequest& request) {
    answer(request);
    question = &request;
  };
  std::uint32_t lastAnswer = 0;
  context.onCall = [&] {
    // The last query while the question is there.
    if (question && context.told.back() == progress(100)) lastAnswer = std::exchange(question, nullptr)->answer;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, untilPictureAnd({message("(stopped)"), progress(80), FINAL_REPORT("TEST_ABORTED_BY_EVENT"),
                                           progress(100), progress(100)}));
  EXPECT_EQ(lastAnswer, 5u);
}

TEST_F(CaptureRun, ClosingTheDialogLeadsToTheQuestion) {
  afterFrame([&] {
    if (capturer.framesTaken == 4) openDialog()->close();
  });
  questionAnswer = InputRequest::kNo;
  EXPECT_EQ(run(), kTestFailed);
  EXPECT_EQ(capturer.framesTaken, 4);
  EXPECT_EQ(fakeHostServices().sleeps, std::vector<std::uint32_t>(4, 30));
  EXPECT_EQ(openDialog(), nullptr);
}

TEST_F(CaptureRun, TheDialogShowsTheFrames) {
  QImage shown;
  afterFrame(
      [&] { shown = openDialog()->findChild<QLabel*>("camera_capture_test_lb_image_view")->pixmap().toImage(); });
  setTimeout("0");
  capturer.frame.fill(QColor(10, 200, 30));
  run();
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(10, 200, 30));
}

TEST_P(CaptureRunSettings, SayHowLongThePictureIsShown) {
  setTimeout("3");  // an earlier setting, which a later one replaces
  EXPECT_TRUE(test.configure(GetParam().settings, 0));
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(capturer.framesTaken, GetParam().frames);
}

// Each frame takes the 30 ms of its pause: 20 s are over with the 667th.
INSTANTIATE_TEST_SUITE_P(
    Maps, CaptureRunSettings,
    testing::Values(Settings{{}, 667}, Settings{{{"ORCA", {{"ORCA_POPUP_TIMEOUT", "1"}}}}, 667},
                    Settings{{{"OTHER", {{"ORCA_TEST_TIMEOUT", "1"}}}}, 667},
                    Settings{{{"ORCA", {{"ORCA_TEST_TIMEOUT", " +1 second"}}}}, 34},
                    Settings{{{"ORCA", {{"ORCA_TEST_TIMEOUT", "9"}, {"ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST", "0"}}}},
                             1}));

TEST_F(CaptureRun, ABadTimeoutIsRefusedAndTheOldOneKept) {
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
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(capturer.framesTaken, 34);

  EXPECT_EQ(errorOf("4294967295"), "");
  EXPECT_EQ(errorOf("-1"), "");
}
