// The host cancels a run at a random moment, while the dialog lives on the thread of the user interface.

#include <QDeadlineTimer>

#include <chrono>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

#include "unit_tests/fakes/race_rounds.h"
#include "unit_tests/tests/camera_test_fixture.h"

using namespace std::chrono_literals;

namespace {

struct CancelRaceTest : public CameraTestFixture, public testing::WithParamInterface<bool> {
  CancelRaceTest() : CameraTestFixture(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(, CancelRaceTest, testing::Bool(),
                         [](const auto& parameter) { return parameter.param ? "Capture" : "Barcode"; });

TEST_P(CancelRaceTest, ARunEndsCancelledWithoutAMessageAndLeavesNothing) {
  RaceRounds rounds;
  setTimeout("4294967295");
  // Not through Qt's events, as the thread sanitizer does not see them.
  std::mutex mutex;
  std::function<void()> forUserInterface;
  context.onSubmit = [&](InputRequest& request) {
    std::promise<void> answered;
    {
      const std::scoped_lock lock(mutex);
      forUserInterface = [&] { answer(request), answered.set_value(); };
    }
    answered.get_future().wait();
  };
  rounds.forEach([&] {
    context.cancelled = false;
    context.told.clear();
    std::atomic<bool> finished = false;
    TestResult result = kTestPassed;
    std::thread runner([&] {
      result = test->run(&context);
      finished = true;
    });
    std::thread host([&] {
      rounds.pause(10ms);
      context.cancelled = true;
    });
    for (const QDeadlineTimer end(10s); (!finished || openDialog()) && !end.hasExpired();) {
      if (const auto show = (std::scoped_lock(mutex), std::exchange(forUserInterface, {}))) show();
      QApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ASSERT_TRUE(finished && !openDialog()) << context.told;
    runner.join();
    host.join();
    EXPECT_EQ(result, kTestCancelled);
    const QByteArray told = QByteArray::fromStdString(context.told);
    EXPECT_TRUE(told.endsWith(" 100")) << context.told;
    EXPECT_EQ(told.count("(started)"), told.count(" (stopped) 100")) << context.told;
    EXPECT_FALSE(told.contains(":")) << "a message: " << context.told;
  });
}

}  // namespace
