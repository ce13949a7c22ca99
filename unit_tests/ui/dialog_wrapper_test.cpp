#include "ui/dialog_wrapper.h"

#include <QLabel>
#include <QPointer>

#include "unit_tests/ui/wrapper_helpers.h"

namespace {

/// Both wrappers, each with its dialog.
template <class Wrapper>
class DialogWrapperTest : public WrapperTest<Wrapper> {
 protected:
  /// Counts what the wrapper sends to its dialog.
  void countSignals(Wrapper& wrapper) {
    QObject::connect(&wrapper, &Wrapper::UpdateFrame, [this] { ++emitted; });
    QObject::connect(&wrapper, &Wrapper::CloseDialog, [this] { ++emitted; });
  }
  int emitted = 0;
};
using Wrappers = testing::Types<CameraWidgetWrapper, CameraBarcodeWidgetWrapper>;
TYPED_TEST_SUITE(DialogWrapperTest, Wrappers);

TYPED_TEST(DialogWrapperTest, HasItsSignalsAndBothBases) {
  EXPECT_THAT(ownMethods(TypeParam::staticMetaObject), testing::ElementsAre("UpdateFrame(QImage)", "CloseDialog()"));
  TypeParam wrapper({640, 480}, nullptr);
  EXPECT_EQ(wrapper.qt_metacast("AbstractWidgetWrapper"), static_cast<AbstractWidgetWrapper*>(&wrapper));
}

TYPED_TEST(DialogWrapperTest, WithoutADialogNothingHappens) {
  TypeParam wrapper({640, 480}, nullptr);
  this->countSignals(wrapper);
  wrapper.SendFrame(this->picture(Qt::red));
  wrapper.Close();
  EXPECT_EQ(this->emitted, 0);
  EXPECT_EQ(wrapper.GetResult(), 0);
}

TYPED_TEST(DialogWrapperTest, OpensBlackAndIsBroughtToTheFrontOnce) {
  QStringList steps;
  ShowObserver observer([&](const QWidget& shown) { steps += QString::number(shown.windowFlags().toInt(), 16); });
  this->wrapper = std::make_shared<TypeParam>(QSize(64, 48), &this->context);
  QObject::connect(this->wrapper.get(), &TypeParam::UpdateFrame,
                   [&](const QImage& image) { steps += image.pixelColor(60, 40) == Qt::black ? "black" : "?"; });
  EXPECT_TRUE(this->wrapper->CreateWidget(nullptr, &observer));
  EXPECT_EQ(steps, QStringList({"black", "40803", "803"}));
  auto* const dialog = openDialog<typename TestFixture::Dialog>();
  EXPECT_TRUE(dialog->testAttribute(Qt::WA_DeleteOnClose));
  EXPECT_EQ(dialog->result(), 0);
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

  dialog->Close();
  EXPECT_EQ(this->wrapper->GetResult(), 5);
  this->wrapper->Close();
  EXPECT_EQ(sent(), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return alive.isNull(); }));
  this->wrapper->Close();
  EXPECT_EQ(sent(), 0);
  EXPECT_EQ(this->wrapper->GetResult(), 5);
}

TYPED_TEST(DialogWrapperTest, CarriesFramesAndTheCloseFromATestsThread) {
  QImage last;
  QPointer<QObject> dialog;
  runOnWorkerThread([&] {
    const auto shared = this->createFromWorkerThread();
    for (int i = 0; i < 20; ++i) shared->SendFrame(this->picture(i < 19 ? Qt::red : Qt::green));
    // All frames lie before this one in the queue: none was dropped or shown early.
    onUserInterfaceThread([&] {
      dialog = openDialog<typename TestFixture::Dialog>();
      last = this->shown();
    });
    shared->Close();
    while (shared->GetResult() == 0) QThread::msleep(1);
    EXPECT_EQ(shared->GetResult(), 5);
  });
  EXPECT_EQ(last.pixelColor(5, 5), QColor(Qt::green));
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
}

TYPED_TEST(DialogWrapperTest, OutlivesItsDialogWhenTheTestLetsGoAtOnce) {
  for (int round = 0; round < 10; ++round) {
    std::weak_ptr<TypeParam> watched;
    runOnWorkerThread([&] {
      const auto shared = this->createFromWorkerThread();
      watched = shared;
      shared->SendFrame(this->picture(Qt::red));
      shared->Close();
    });
    // The dialog writes its answer after the test has gone, and takes the wrapper with it.
    EXPECT_TRUE(QTest::qWaitFor([&] { return watched.expired(); }));
    EXPECT_EQ(openDialog<typename TestFixture::Dialog>(), nullptr);
  }
}

TYPED_TEST(DialogWrapperTest, TheDialogMayGoAtAnyMoment) {
  for (int round = 0; round < 20; ++round) {
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
      } while (++passes, !gone);
    }));
    thread->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return passes > round; }));
    delete openDialog<typename TestFixture::Dialog>();
    gone = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return watched.expired(); }));
  }
}

/// What the two wrappers do with the size of the frames, on a screen of 144 dots per inch.
TYPED_TEST(DialogWrapperTest, OnlyTheCaptureTestsScalesAndHandsTheContextOver) {
  fakePlatform().monitorDpi = 144;
  QSize black;
  this->wrapper = std::make_shared<TypeParam>(QSize(641, 482), &this->context);
  QObject::connect(this->wrapper.get(), &TypeParam::UpdateFrame, [&](const QImage& image) { black = image.size(); });
  this->wrapper->CreateWidget(nullptr, &this->hostFilter);
  auto* const dialog = openDialog<typename TestFixture::Dialog>();
  const typename TestFixture::Dialog untouched(nullptr, nullptr);
  const QSize scaled(427, 321);
  const auto* const view = dialog->template findChild<QLabel*>(TestFixture::kView);
  EXPECT_EQ(black, TestFixture::kBarcode ? QSize(641, 482) : scaled);
  EXPECT_EQ(dialog->maximumSize(), TestFixture::kBarcode ? untouched.maximumSize() : scaled);
  EXPECT_EQ(view->maximumSize(), TestFixture::kBarcode ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : scaled);
  EXPECT_EQ(dialog->context, TestFixture::kBarcode ? nullptr : &this->context);
}

TYPED_TEST(DialogWrapperTest, OnlyTheBarcodeTestsKnowsATwo) {
  this->show({64, 48})->resultTarget->store(2);
  EXPECT_EQ(this->wrapper->GetResult(), TestFixture::kBarcode ? 2 : 0);
}

using CameraWidgetWrapperTest = WrapperTest<CameraWidgetWrapper>;

TEST_F(CameraWidgetWrapperTest, AFrameSizeOfZeroKeepsTheDefaultSizes) {
  CameraDialog* const dialog = show({0, 480});
  EXPECT_EQ(dialog->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  EXPECT_TRUE(shown().isNull());
  dialog->LoadFrame(picture(Qt::red));
  EXPECT_EQ(shown().size(), QSize(640, 480));
}

}  // namespace
