#include "ui/camera_barcode_widget_wrapper.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <memory>

#include <gmock/gmock.h>

#include "ui/camera_barcode_dialog.h"
#include "unit_tests/fakes/fake_platform.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

class CameraBarcodeWidgetWrapperTest : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {.monitorDpi = 192}; }
  void TearDown() override { delete openDialog<CameraBarcodeDialog>(); }

  QObject hostFilter;
  StoppableContext context;
};

TEST_F(CameraBarcodeWidgetWrapperTest, LeavesSizeAndContextToTheDialog) {
  EXPECT_THAT(ownMethods(CameraBarcodeWidgetWrapper::staticMetaObject),
              testing::ElementsAre("UpdateFrame(QImage)", "CloseDialog()"));
  const auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(QSize(64, 48), &context);
  QSize black;
  QObject::connect(wrapper.get(), &CameraBarcodeWidgetWrapper::UpdateFrame,
                   [&](const QImage& image) { black = image.size(); });
  EXPECT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
  const auto* const dialog = openDialog<CameraBarcodeDialog>();
  EXPECT_EQ(black, QSize(64, 48)) << "not scaled to the screen";
  EXPECT_EQ(dialog->maximumSize(), CameraBarcodeDialog(nullptr, &hostFilter).maximumSize());
  EXPECT_EQ(dialog->context, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_TRUE(dialog->testAttribute(Qt::WA_DeleteOnClose));
}

TEST_F(CameraBarcodeWidgetWrapperTest, AnswersTheFailButtonAfterTheDialogHasGone) {
  const auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(QSize(64, 48), &context);
  wrapper->ShowRetry();
  wrapper->CreateWidget(nullptr, &hostFilter);
  const QPointer<CameraBarcodeDialog> dialog(openDialog<CameraBarcodeDialog>());
  EXPECT_EQ(wrapper->GetResult(), 0);
  child<QPushButton>(*dialog, "camera_barcode_test_button_fail")->click();
  EXPECT_EQ(wrapper->GetResult(), 2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
  wrapper->ShowRetry();
  wrapper->SendFrame(QImage(8, 8, QImage::Format_RGB32));
  wrapper->Close();
  EXPECT_EQ(wrapper->GetResult(), 2);
}

TEST_F(CameraBarcodeWidgetWrapperTest, ServesATestOnAnotherThread) {
  std::weak_ptr<CameraBarcodeWidgetWrapper> watched;
  bool retryShown = false;
  runOnWorkerThread([&] {
    auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(QSize(64, 48), &context);
    watched = wrapper;
    createOnUserInterfaceThread(*wrapper, hostFilter);
    // The one call that reaches the dialog from here; the other thread waits, as the dialog may not be at work.
    QMetaObject::invokeMethod(
        qApp, [] {}, Qt::BlockingQueuedConnection);
    wrapper->ShowRetry();
    QMetaObject::invokeMethod(
        qApp,
        [&] {
          const auto* const dialog = openDialog<CameraBarcodeDialog>();
          retryShown = child(*dialog, "camera_barcode_test_warning_container")->isVisible();
        },
        Qt::BlockingQueuedConnection);
    wrapper->Close();
    wrapper.reset();
  });
  EXPECT_TRUE(retryShown);
  EXPECT_TRUE(QTest::qWaitFor([&] { return watched.expired(); }));
  EXPECT_EQ(openDialog<CameraBarcodeDialog>(), nullptr);
}

}  // namespace
