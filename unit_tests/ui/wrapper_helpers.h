#pragma once

#include <QLabel>

#include <functional>
#include <utility>

#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/ui/dialog_helpers.h"

/// Runs a piece of code as a test of the host does: on a thread of its own, while this one runs the event loop.
template <class Work>
void runOnWorkerThread(Work work) {
  const std::unique_ptr<QThread> thread(QThread::create(work));
  thread->start();
  EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished(); }, 20000));
  thread->wait();
}

template <class Work>
void onUserInterfaceThread(Work work) {
  QMetaObject::invokeMethod(qApp, work, Qt::BlockingQueuedConnection);
}

/// A host's event filter that looks at the dialog whenever it is shown.
class ShowObserver : public QObject {
 public:
  explicit ShowObserver(std::function<void(const QWidget&)> look) : onShow(std::move(look)) {}
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show) onShow(*static_cast<QWidget*>(object));
    return false;
  }

 private:
  std::function<void(const QWidget&)> onShow;
};

/// A wrapper with its dialog, which goes with the test.
template <class Wrapper>
class WrapperTest : public testing::Test {
 protected:
  static constexpr bool kBarcode = std::is_same_v<Wrapper, CameraBarcodeWidgetWrapper>;
  static constexpr const char* kView =
      kBarcode ? "camera_barcode_test_camera_image" : "camera_capture_test_lb_image_view";
  using Dialog = std::conditional_t<kBarcode, CameraBarcodeDialog, CameraDialog>;

  void SetUp() override { fakePlatform() = {.monitorDpi = 96}; }
  void TearDown() override {
    delete openDialog<Dialog>();
    EXPECT_EQ(openDialog<Dialog>(), nullptr);
  }

  Dialog* show(QSize size) {
    wrapper = std::make_shared<Wrapper>(size, &context);
    EXPECT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
    return openDialog<Dialog>();
  }
  /// What test and host do: the one makes the wrapper, the other the dialog.
  std::shared_ptr<Wrapper> createFromWorkerThread() {
    const auto shared = std::make_shared<Wrapper>(QSize(32, 24), &context);
    onUserInterfaceThread([&] { shared->CreateWidget(nullptr, &hostFilter); });
    return shared;
  }
  static QImage shown() { return openDialog<Dialog>()->template findChild<QLabel*>(kView)->pixmap().toImage(); }
  static QImage picture(QColor color) {
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(color);
    return image;
  }

  QObject hostFilter;
  FakeContext context;
  std::shared_ptr<Wrapper> wrapper;
};
