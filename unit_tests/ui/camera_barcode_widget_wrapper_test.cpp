#include "ui/camera_barcode_widget_wrapper.h"

#include <QElapsedTimer>

#include <set>

#include "unit_tests/ui/wrapper_helpers.h"

namespace {

/// A host's event filter that asks its user-interface thread before it lets an event pass.
class AskingFilter : public QObject {
 public:
  bool eventFilter(QObject*, QEvent*) override {
    threads.insert(QThread::currentThread());
    if (QThread::currentThread() != thread()) onUserInterfaceThread([] {});
    return false;
  }
  std::set<const QThread*> threads;
};

class ShowRetryTest : public WrapperTest<CameraBarcodeWidgetWrapper> {
 protected:
  bool isRetry() const {
    return openDialog<Dialog>()->findChild<QWidget*>("camera_barcode_test_warning_container")->isVisible();
  }
};

TEST_F(ShowRetryTest, HappensOnTheUserInterfaceThreadBeforeTheTestGoesOn) {
  show({64, 48});
  AskingFilter filter;
  for (QWidget* const part : openDialog<Dialog>()->findChildren<QWidget*>()) part->installEventFilter(&filter);
  bool switched = false;
  runOnWorkerThread([&] {
    wrapper->ShowRetry();
    switched = isRetry();
  });
  EXPECT_TRUE(switched);
  EXPECT_EQ(filter.threads, std::set<const QThread*>{filter.thread()});
}

TEST_F(ShowRetryTest, HappensAtOnceOnTheUserInterfaceThread) {
  show({64, 48});
  wrapper->ShowRetry();
  EXPECT_TRUE(isRetry());
}

TEST_F(ShowRetryTest, FollowsWhenTheUserInterfaceThreadIsBusy) {
  show({64, 48});
  const std::unique_ptr<QThread> thread(QThread::create([&] { wrapper->ShowRetry(); }));
  QElapsedTimer time;
  time.start();
  thread->start();
  EXPECT_TRUE(thread->wait(5000));
  EXPECT_GE(time.elapsed(), 450);
  EXPECT_LT(time.elapsed(), 1500);
  EXPECT_FALSE(isRetry());
  EXPECT_TRUE(QTest::qWaitFor([&] { return isRetry(); }));
}

TEST_F(ShowRetryTest, DoesNothingWithoutADialog) {
  CameraBarcodeWidgetWrapper alone({64, 48}, nullptr);
  QElapsedTimer time;
  time.start();
  const std::unique_ptr<QThread> thread(QThread::create([&] { alone.ShowRetry(); }));
  thread->start();
  EXPECT_TRUE(thread->wait(5000));
  EXPECT_LT(time.elapsed(), 400) << "there was nothing to wait for";
}

}  // namespace
