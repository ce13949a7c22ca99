#include "tests/camera_capture_test.h"

#include <QLabel>

#include <stdexcept>
#include <tuple>

#include <gmock/gmock.h>

#include "unit_tests/tests/camera_test_fixture.h"

namespace {

using testing::ThrowsMessage;

struct CaptureRun : public CameraTestFixture {
  CaptureRun() : CameraTestFixture(true) {}
};

}  // namespace

TEST_F(CaptureRun, AnUnconfirmedMessageEndsTheTestWithoutTheCameraAndAnEventIsReportedAfterIt) {
  initialAnswer = 0;
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, " 0 1 ?INITIAL_MESSAGE 100");

  context.onSubmit = [&](InputRequest& request) {
    context.event = 1;
    request.answer = 0;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told, " 0 1 ?INITIAL_MESSAGE 100" + finalReport("TEST_ABORTED_BY_EVENT"));
}

TEST_F(CaptureRun, TheAnswerDecidesTheResultAfterTheCameraWasStopped) {
  setTimeout("0");
  for (const auto& [answer, result, told] :
       {std::tuple(3u, 0u, std::string()), {4u, 1u, finalReport("CAMERA_RESULT_FAILED")}, {0u, 4u, ""}, {1u, 4u, ""}}) {
    questionAnswer = answer;
    EXPECT_EQ(run(), result);
    EXPECT_EQ(context.told, untilPicture() + " (stopped) 80 ?CHECK_CAMERA_IMAGE" + told + " 100 100");
  }
  EXPECT_EQ(capturer.framesTaken, 4);
}

TEST_F(CaptureRun, AnEventOrACancellationDuringTheQuestionOverridesTheAnswer) {
  setTimeout("0");
  onQuestion = [&] { context.cancelled = true; };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_TRUE(context.told.ends_with(" 100"));

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
    if (question && context.told.ends_with(" 100")) lastAnswer = std::exchange(question, nullptr)->answer;
  };
  EXPECT_EQ(run(), kTestCancelled);
  EXPECT_EQ(context.told,
            untilPicture() + " (stopped) 80 ?CHECK_CAMERA_IMAGE" + finalReport("TEST_ABORTED_BY_EVENT") + " 100 100");
  EXPECT_EQ(lastAnswer, 5u);
}

TEST_F(CaptureRun, ClosingTheDialogLeadsToTheQuestion) {
  afterFrame([&] {
    const QImage shown = openDialog()->findChild<QLabel*>("camera_capture_test_lb_image_view")->pixmap().toImage();
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::blue));
    if (capturer.framesTaken == 4) openDialog()->close();
  });
  questionAnswer = 4;
  EXPECT_EQ(run(), kTestFailed);
  EXPECT_EQ(capturer.framesTaken, 4);
  EXPECT_EQ(fakeHostServices().sleeps, std::vector<std::uint32_t>(4, 30));
}

TEST_F(CaptureRun, SettingsSayHowLongThePictureIsShown) {
  // Each frame takes the 30 ms of its pause: 20 s are over with the 667th, 12 s with the 401st.
  const std::pair<TestSettings, int> settings[] = {
      {{}, 667},
      {{{"ORCA", {{"ORCA_POPUP_TIMEOUT", "1"}}}}, 667},
      {{{"OTHER", {{"ORCA_TEST_TIMEOUT", "1"}}}}, 667},
      {{{"ORCA", {{"ORCA_TEST_TIMEOUT", " +012 seconds"}}}}, 401},
      {{{"ORCA", {{"ORCA_TEST_TIMEOUT", "9"}, {"ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST", "0"}}}}, 1}};
  for (const auto& [map, frames] : settings) {
    setTimeout("1");  // an earlier setting, which a later one replaces
    EXPECT_TRUE(test->configure(map, 0));
    capturer.framesTaken = 0;
    EXPECT_EQ(run(), kTestPassed);
    EXPECT_EQ(capturer.framesTaken, frames);
  }
}

TEST_F(CaptureRun, ABadTimeoutIsRefusedAndTheOldOneKept) {
  setTimeout("1");
  for (const char* value : {"abc", ""}) {
    ASSERT_THAT([&] { setTimeout(value); }, ThrowsMessage<std::invalid_argument>("invalid stoul argument"));
  }
  for (const char* value : {"4294967296", "99999999999999999999"}) {
    ASSERT_THAT([&] { setTimeout(value); }, ThrowsMessage<std::out_of_range>("stoul argument out of range"));
  }
  EXPECT_EQ(run(), kTestPassed);
  EXPECT_EQ(capturer.framesTaken, 34);
  for (const char* value : {"4294967295", "-1"}) setTimeout(value);
}
