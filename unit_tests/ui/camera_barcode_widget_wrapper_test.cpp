#include "ui/camera_barcode_widget_wrapper.h"

#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <memory>

#include <gtest/gtest.h>

#include "ui/camera_barcode_dialog.h"
#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

/// Whether this thread's event loop stood still while a widget was shown by another one.
class ShowObserver : public QObject {
 public:
  explicit ShowObserver(QWidget* observed) {
    observed->installEventFilter(this);
    QObject::connect(&timer, &QTimer::timeout, this, [this] { ++turns; });
    timer.start(0);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      const int before = turns;
      QThread::msleep(20);
      shownInPeace = turns == before;
    }
    return false;
  }

  std::atomic<bool> shownInPeace{false};

 private:
  std::atomic<int> turns{0};
  QTimer timer;
};

TEST(CameraBarcodeWidgetWrapperTest, ShowsTheRetryFromATestsThreadAndKeepsTheAnswer) {
  fakePlatform() = {};
  QObject hostFilter;
  const auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(QSize(64, 48), nullptr);
  wrapper->ShowRetry();
  wrapper->CreateWidget(nullptr, &hostFilter);
  const QPointer<CameraBarcodeDialog> dialog(openDialog<CameraBarcodeDialog>());
  QWidget* const warning = child(*dialog, "camera_barcode_test_warning_container");
  const ShowObserver observer(warning);
  runOnWorkerThread([&] { wrapper->ShowRetry(); });
  EXPECT_TRUE(observer.shownInPeace) << "Qt's bookkeeping of a window is not made for two threads";

  EXPECT_TRUE(warning->isVisible());

  child<QPushButton>(*dialog, "camera_barcode_test_button_fail")->click();
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
  wrapper->ShowRetry();
  EXPECT_EQ(wrapper->GetResult(), 2);
}

TEST(CameraBarcodeWidgetWrapperTest, ShowsTheRetryLaterWhenTheUserInterfaceThreadIsBusy) {
  fakePlatform() = {};
  QObject hostFilter;
  const auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(QSize(64, 48), nullptr);
  wrapper->CreateWidget(nullptr, &hostFilter);
  CameraBarcodeDialog* const dialog = openDialog<CameraBarcodeDialog>();
  const QWidget* const warning = child(*dialog, "camera_barcode_test_warning_container");
  const std::unique_ptr<QThread> thread(QThread::create([&] { wrapper->ShowRetry(); }));
  thread->start();
  thread->wait();
  EXPECT_FALSE(warning->isVisible()) << "nobody held the thread still";
  EXPECT_TRUE(QTest::qWaitFor([&] { return warning->isVisible(); }));
  delete dialog;
}

}  // namespace
