#include "ui/dialog_wrapper.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>

#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

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

/// A wrapper with its dialog, which goes with the test.
template <class Wrapper>
class DialogWrapperTest : public testing::Test {
 protected:
  static constexpr bool kBarcode = std::is_same_v<Wrapper, CameraBarcodeWidgetWrapper>;
  static constexpr const char* kView =
      kBarcode ? "camera_barcode_test_camera_image" : "camera_capture_test_lb_image_view";
  using Dialog = std::conditional_t<kBarcode, CameraBarcodeDialog, CameraDialog>;

  void SetUp() override { fakePlatform() = {.monitorDpi = 96}; }
  static Dialog* open() { return openDialog<Dialog>(); }
  void TearDown() override {
    delete open();
    EXPECT_EQ(open(), nullptr);
  }

  Dialog* show(QSize size) {
    wrapper = std::make_shared<Wrapper>(size, &context);
    EXPECT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
    return open();
  }
  /// What test and host do: the one makes the wrapper, the other the dialog.
  std::shared_ptr<Wrapper> createFromWorkerThread() {
    const auto shared = std::make_shared<Wrapper>(QSize(32, 24), &context);
    onUserInterfaceThread([&] { EXPECT_TRUE(shared->CreateWidget(nullptr, &hostFilter)); });
    return shared;
  }
  static QImage shown() { return open()->template findChild<QLabel*>(kView)->pixmap().toImage(); }
  static QImage picture(QColor color) {
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(color);
    return image;
  }

  /// Counts what the wrapper sends to its dialog.
  void countSignals(Wrapper& watched) {
    QObject::connect(&watched, &Wrapper::UpdateFrame, [this] { ++emitted; });
    QObject::connect(&watched, &Wrapper::CloseDialog, [this] { ++emitted; });
  }

  FakeContext context;
  std::shared_ptr<Wrapper> wrapper;
  int emitted = 0;
};
using Wrappers = testing::Types<CameraWidgetWrapper, CameraBarcodeWidgetWrapper>;
TYPED_TEST_SUITE(DialogWrapperTest, Wrappers);

TYPED_TEST(DialogWrapperTest, HasItsSignalsAndBothBasesAndDoesNothingWithoutADialog) {
  EXPECT_EQ(ownMethods(TypeParam::staticMetaObject), "UpdateFrame(QImage) CloseDialog()");
  TypeParam alone({640, 480}, nullptr);
  EXPECT_EQ(alone.qt_metacast("AbstractWidgetWrapper"), static_cast<AbstractWidgetWrapper*>(&alone));
  this->countSignals(alone);
  alone.SendFrame(this->picture(Qt::red));
  alone.Close();
  EXPECT_EQ(this->emitted, 0);
  EXPECT_EQ(alone.GetResult(), 0);
}

/// Only the capture test's wrapper scales to the user's screen and hands the test's context over.
TYPED_TEST(DialogWrapperTest, OpensBlackInItsSizeAndComesToTheFrontOnce) {
  constexpr bool kScales = !TestFixture::kBarcode;
  fakePlatform().monitorDpi = 144;
  const QSize size = kScales ? QSize(427, 321) : QSize(641, 482);
  QStringList steps;
  ShowObserver observer([&](const QWidget& shown) { steps += QString::number(shown.windowFlags().toInt(), 16); });
  this->wrapper = std::make_shared<TypeParam>(QSize(641, 482), &this->context);
  QObject::connect(this->wrapper.get(), &TypeParam::UpdateFrame, [&](const QImage& image) {
    steps += image.size() == size && image.pixelColor(400, 300) == Qt::black ? "black" : "?";
  });
  EXPECT_TRUE(this->wrapper->CreateWidget(nullptr, &observer));
  EXPECT_EQ(steps, QStringList({"black", "40803", "803"}));

  auto* const dialog = this->open();
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_TRUE(dialog->testAttribute(Qt::WA_DeleteOnClose));
  EXPECT_EQ(dialog->context, kScales ? &this->context : nullptr);
  const QWidget* const view = dialog->template findChild<QLabel*>(this->kView);
  EXPECT_EQ(dialog->maximumSize(), kScales ? size : typename TestFixture::Dialog(nullptr, nullptr).maximumSize());
  EXPECT_EQ(view->maximumSize(), kScales ? size : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

TYPED_TEST(DialogWrapperTest, SendsNothingToADialogWithAResult) {
  auto* const dialog = this->show({64, 48});
  const QPointer<QObject> alive(dialog);
  this->countSignals(*this->wrapper);
  const auto sent = [this] {
    this->emitted = 0;
    this->wrapper->SendFrame(this->picture(Qt::red));
    return this->emitted;
  };
  // Set by somebody else. What the dialog notices with its next event.
  for (const int other : {7, 0}) {
    dialog->setResult(other);
    QEvent event(QEvent::User);
    QApplication::sendEvent(dialog, &event);
    EXPECT_EQ(sent(), other == 0);
    EXPECT_EQ(this->wrapper->GetResult(), 0);
  }
  dialog->resultTarget->store(2);
  EXPECT_EQ(this->wrapper->GetResult(), TestFixture::kBarcode ? 2 : 0);

  QObject::connect(dialog, &TestFixture::Dialog::closing, [&] { EXPECT_EQ(sent(), 0) << "from the answer on"; });
  dialog->Close();
  EXPECT_EQ(this->wrapper->GetResult(), 5);
  this->wrapper->Close();
  EXPECT_EQ(sent(), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }));
  this->wrapper->Close();
  EXPECT_EQ(sent(), 0);
  EXPECT_EQ(this->wrapper->GetResult(), 5);

  EXPECT_TRUE(this->wrapper->CreateWidget(nullptr, &hostFilter));
  EXPECT_EQ(this->wrapper->GetResult(), 0) << "another dialog";
  EXPECT_EQ(sent(), 1);
}

TYPED_TEST(DialogWrapperTest, CarriesFramesAndTheCloseFromATestsThread) {
  QImage last;
  QPointer<QObject> dialog;
  runOnWorkerThread([&] {
    const auto shared = this->createFromWorkerThread();
    for (int i = 0; i < 20; ++i) shared->SendFrame(this->picture(i < 19 ? Qt::red : Qt::green));
    // All frames lie before this one in the queue: none was dropped or shown early.
    onUserInterfaceThread([&] {
      dialog = this->open();
      last = this->shown();
    });
    shared->Close();
    while (shared->GetResult() == 0) QThread::msleep(1);
    EXPECT_EQ(shared->GetResult(), 5);
  });
  EXPECT_EQ(last.pixelColor(5, 5), QColor(Qt::green));
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
}

TYPED_TEST(DialogWrapperTest, WrapperAndDialogMayGoAtAnyMoment) {
  for (int round = 0; round < 30; ++round) {
    const bool letsGoAtOnce = round % 3 == 0;
    std::atomic<int> passes{0};
    std::atomic<bool> gone{false};
    std::weak_ptr<TypeParam> watched;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
      const auto shared = this->createFromWorkerThread();
      watched = shared;
      do {
        shared->SendFrame(this->picture(Qt::red));
        if constexpr (TestFixture::kBarcode) shared->ShowRetry();
        if (round % 2 == 1 && passes == round) shared->Close();
      } while (++passes, !letsGoAtOnce && !gone);
      shared->Close();
    }));
    thread->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return passes > (letsGoAtOnce ? 0 : round); }));
    if (!letsGoAtOnce) delete this->open();
    gone = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished() && watched.expired(); }));
    EXPECT_EQ(this->open(), nullptr);
  }
}

using CameraWidgetWrapperTest = DialogWrapperTest<CameraWidgetWrapper>;

TEST_F(CameraWidgetWrapperTest, AFrameSizeOfZeroKeepsTheDefaultSizes) {
  CameraDialog* const dialog = show({0, 480});
  EXPECT_EQ(dialog->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  EXPECT_TRUE(shown().isNull());
  dialog->LoadFrame(picture(Qt::red));
  EXPECT_EQ(shown().size(), QSize(640, 480));
}

class ShowRetryTest : public DialogWrapperTest<CameraBarcodeWidgetWrapper> {
 protected:
  static QWidget& warning() { return *open()->findChild<QWidget*>("camera_barcode_test_warning_container"); }
};

TEST_F(ShowRetryTest, HappensOnTheUserInterfaceThreadBeforeTheTestGoesOn) {
  show({64, 48});
  std::atomic<QThread*> showing = nullptr;
  ShowObserver filter([&](const QWidget&) { showing = QThread::currentThread(); });
  warning().installEventFilter(&filter);
  QThread* shown = nullptr;
  runOnWorkerThread([&] {
    wrapper->ShowRetry();
    shown = showing;
  });
  EXPECT_EQ(shown, qApp->thread());
}

TEST_F(ShowRetryTest, FollowsWhenTheUserInterfaceThreadIsBusyAndHappensAtOnceOnIt) {
  show({64, 48});
  const auto wait = [this] {
    const std::unique_ptr<QThread> thread(QThread::create([target = wrapper]() mutable {
      target->ShowRetry();
      target.reset();
    }));
    QElapsedTimer time;
    time.start();
    thread->start();
    EXPECT_TRUE(thread->wait(5000));
    return time.elapsed();
  };
  EXPECT_GE(wait(), 450);
  EXPECT_FALSE(warning().isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return warning().isVisible(); }));

  delete open();
  EXPECT_LT(wait(), 450) << "without a dialog";
  show({64, 48});
  wrapper->ShowRetry();
  EXPECT_TRUE(warning().isVisible());
}

}  // namespace
