// A test's thread sends frames and asks for the retry while the user closes the dialog at a random moment.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/fakes/race_rounds.h"
#include "unit_tests/ui/dialog_helpers.h"

using namespace std::chrono_literals;

namespace {

// The retry is handed over by Qt's queue, which the thread sanitizer does not see.
#ifdef __SANITIZE_THREAD__
constexpr bool kRetries = false;
#else
constexpr bool kRetries = true;
#endif

template <class Wrapper>
class DialogRaceTest : public testing::Test {
 protected:
  static constexpr bool kBarcode = std::is_same_v<Wrapper, CameraBarcodeWidgetWrapper>;
  using Dialog = std::conditional_t<kBarcode, CameraBarcodeDialog, CameraDialog>;

  void SetUp() override { fakePlatform() = {.monitorDpi = 96}; }

  RaceRounds rounds;
};
using Wrappers = testing::Types<CameraWidgetWrapper, CameraBarcodeWidgetWrapper>;
TYPED_TEST_SUITE(DialogRaceTest, Wrappers);

TYPED_TEST(DialogRaceTest, TheUserClosesWhileFramesAndTheRetryAreSent) {
  QImage frame(32, 24, QImage::Format_RGB32);
  frame.fill(Qt::darkGray);
  FakeContext context;
  this->rounds.forEach([&] {
    auto wrapper = std::make_shared<TypeParam>(frame.size(), &context);
    ASSERT_TRUE(wrapper->CreateWidget(nullptr, &hostFilter));
    auto* const dialog = openDialog<typename TestFixture::Dialog>();
    std::atomic<bool> started = false, finished = false;
    std::chrono::steady_clock::duration longest = {};
    std::thread tester([&, sending = wrapper]() mutable {
      started = true;
      while (sending->GetResult() == kNoAnswer) {
        sending->SendFrame(frame);
        std::this_thread::sleep_for(50us);  // or the user interface has nothing but frames to do
        if constexpr (TestFixture::kBarcode && kRetries) {
          const auto before = std::chrono::steady_clock::now();
          sending->ShowRetry();
          longest = std::max(longest, std::chrono::steady_clock::now() - before);
        }
      }
      EXPECT_EQ(sending->GetResult(), kDialogClosed);
      sending->Close();
      sending->SendFrame(frame);
      sending.reset();
      finished = true;
    });
    while (!started) std::this_thread::yield();
    wrapper.reset();
    this->rounds.pause(500us);
    QApplication::processEvents();
    dialog->Close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return finished.load(); }));
    tester.join();
    EXPECT_LT(longest, 1s) << "half a second is the longest wait for the retry";
    EXPECT_TRUE(QTest::qWaitFor([] { return !openDialog<typename TestFixture::Dialog>(); }));
  });
}

}  // namespace
