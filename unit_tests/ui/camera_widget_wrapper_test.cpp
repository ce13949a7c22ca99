#include "ui/camera_widget_wrapper.h"

#include <QLabel>
#include <QPointer>
#include <QThread>

#include <memory>

#include <gmock/gmock.h>

#include "ui/camera_dialog.h"
#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

QImage picture(QColor color) {
  QImage image(8, 6, QImage::Format_RGB32);
  image.fill(color);
  return image;
}

class CameraWidgetWrapperTest : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {.monitorDpi = 96}; }
  void TearDown() override {
    delete openDialog<CameraDialog>();
    EXPECT_EQ(openDialog<CameraDialog>(), nullptr);
  }

  CameraDialog* show(QSize size) {
    wrapper = std::make_shared<CameraWidgetWrapper>(size, &context);
    EXPECT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
    return openDialog<CameraDialog>();
  }

  static QImage shown(const CameraDialog& dialog) {
    return child<QLabel>(dialog, "camera_capture_test_lb_image_view")->pixmap().toImage();
  }

  QObject hostFilter;
  StoppableContext context;
  std::shared_ptr<CameraWidgetWrapper> wrapper;
};

TEST_F(CameraWidgetWrapperTest, HasItsSignals) {
  EXPECT_THAT(ownMethods(CameraWidgetWrapper::staticMetaObject),
              testing::ElementsAre("UpdateFrame(QImage)", "CloseDialog()"));
}

TEST_F(CameraWidgetWrapperTest, WithoutADialogNothingHappens) {
  CameraWidgetWrapper alone({640, 480}, &context);
  int emitted = 0;
  QObject::connect(&alone, &CameraWidgetWrapper::UpdateFrame, [&] { ++emitted; });
  QObject::connect(&alone, &CameraWidgetWrapper::CloseDialog, [&] { ++emitted; });
  alone.SendFrame(picture(Qt::red));
  alone.Close();
  EXPECT_EQ(emitted, 0);
  EXPECT_EQ(alone.GetResult(), 0);
}

TEST_F(CameraWidgetWrapperTest, OpensBlackInFrontScaledToTheScreen) {
  fakePlatform().monitorDpi = 144;
  const CameraDialog* const dialog = show({641, 482});
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->maximumSize(), QSize(427, 321));
  const QImage black = shown(*dialog);
  EXPECT_EQ(black.size(), QSize(427, 321));
  EXPECT_EQ(black.pixelColor(200, 200), QColor(Qt::black));
  EXPECT_EQ(dialog->context, &context);
  EXPECT_EQ(dialog->result(), 0);
  EXPECT_TRUE(dialog->testAttribute(Qt::WA_DeleteOnClose));
  EXPECT_EQ(dialog->windowFlags().toInt(), 0x803) << "brought to the front once, not kept there";
}

TEST_F(CameraWidgetWrapperTest, AFrameSizeOfZeroKeepsTheDefaultSizes) {
  CameraDialog* const dialog = show({0, 480});
  EXPECT_EQ(dialog->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  EXPECT_TRUE(shown(*dialog).isNull());
  dialog->LoadFrame(picture(Qt::red));
  EXPECT_EQ(shown(*dialog).size(), QSize(640, 480));
}

TEST_F(CameraWidgetWrapperTest, AnswersTheCloseAndNoTwo) {
  CameraDialog* const dialog = show({640, 480});
  dialog->resultTarget->store(2);
  EXPECT_EQ(wrapper->GetResult(), 0) << "only the barcode test knows a 2";
  const QPointer<QObject> alive(dialog);
  dialog->Close();
  EXPECT_EQ(wrapper->GetResult(), 5);
  int emitted = 0;
  QObject::connect(wrapper.get(), &CameraWidgetWrapper::UpdateFrame, [&] { ++emitted; });
  QObject::connect(wrapper.get(), &CameraWidgetWrapper::CloseDialog, [&] { ++emitted; });
  wrapper->SendFrame(picture(Qt::red));
  wrapper->Close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }));
  wrapper->SendFrame(picture(Qt::red));
  wrapper->Close();
  EXPECT_EQ(emitted, 0);
  EXPECT_EQ(wrapper->GetResult(), 5);
}

TEST_F(CameraWidgetWrapperTest, CarriesFramesAndTheCloseFromATestsThread) {
  QImage last;
  int answer = -1;
  QPointer<CameraDialog> dialog;
  runOnWorkerThread([&] {
    const auto shared = std::make_shared<CameraWidgetWrapper>(QSize(320, 240), &context);
    createOnUserInterfaceThread(*shared, hostFilter);
    for (int i = 0; i < 20; ++i) shared->SendFrame(picture(i < 19 ? Qt::red : Qt::green));
    // All frames lie before this one in the queue: none was dropped or shown early.
    QMetaObject::invokeMethod(
        qApp, [&] { last = shown(*(dialog = openDialog<CameraDialog>())); }, Qt::BlockingQueuedConnection);
    shared->Close();
    while (shared->GetResult() == 0) QThread::msleep(1);
    answer = shared->GetResult();
  });
  EXPECT_EQ(last.size(), QSize(320, 240));
  EXPECT_EQ(last.pixelColor(5, 5), QColor(Qt::green));
  EXPECT_EQ(answer, 5);
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
}

TEST_F(CameraWidgetWrapperTest, OutlivesItsDialogWhenTheTestLetsGoAtOnce) {
  for (int round = 0; round < 10; ++round) {
    std::weak_ptr<CameraWidgetWrapper> watched;
    runOnWorkerThread([&] {
      auto shared = std::make_shared<CameraWidgetWrapper>(QSize(32, 24), &context);
      watched = shared;
      createOnUserInterfaceThread(*shared, hostFilter);
      shared->SendFrame(picture(Qt::red));
      shared->Close();
      shared.reset();
    });
    // The dialog writes its answer after the test has gone, and takes the wrapper with it.
    EXPECT_TRUE(QTest::qWaitFor([&] { return watched.expired(); }));
    EXPECT_EQ(openDialog<CameraDialog>(), nullptr);
  }
}

TEST_F(CameraWidgetWrapperTest, TheDialogMayGoWhileFramesCome) {
  for (int round = 0; round < 10; ++round) {
    std::atomic<int> sent{0};
    std::atomic<bool> gone{false};
    const std::unique_ptr<QThread> thread(QThread::create([&] {
      const auto shared = std::make_shared<CameraWidgetWrapper>(QSize(32, 24), &context);
      createOnUserInterfaceThread(*shared, hostFilter);
      while (!gone) {
        shared->SendFrame(picture(Qt::red));
        ++sent;
      }
      shared->Close();
    }));
    thread->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sent > 20; }));
    delete openDialog<CameraDialog>();
    gone = true;
    thread->wait();
  }
}

}  // namespace
