#include "tests/camera_barcode_test.h"

#include <QImage>
#include <QSize>
#include <QThread>

#include <memory>

#include "discovery/camera_component.h"
#include "module/host_services.h"
#include "module/keys/camera_keys.h"
#include "module/test_execution_context.h"
#include "tests/plausible_value.h"
#include "tests/test_steps.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "ui/input_request.h"

using test_steps::report;
using test_steps::reportFinally;

namespace {

constexpr std::uint32_t kFramePauseMs = 5;
constexpr unsigned long kRetryPauseMs = 5000;

// No format bit: the decoder's default set, which is every format that it is compiled with.
constexpr int kDefaultFormats = 0;
// Takes effect only in the decoder's try-harder mode, which is off.
constexpr auto kTryHarderBehaviour = QZXing::TryHarderBehaviour_ThoroughScanning;
static_assert(kTryHarderBehaviour == 2);

}  // namespace

CameraBarcodeTest::CameraBarcodeTest(const ItemId& itemId) : Test(itemId), decoder(nullptr) {}

CameraBarcodeTest::~CameraBarcodeTest() = default;

bool CameraBarcodeTest::isApplicable(SystemComponent* component) {
  return test_steps::asCamera(component) != nullptr;
}

bool CameraBarcodeTest::isImplemented() {
  return true;
}

bool CameraBarcodeTest::isAbortEvent(std::uint8_t event) {
  return test_steps::isAbortEvent(event);
}

bool CameraBarcodeTest::hasServices(TestExecutionContext* context) {
  return test_steps::hasServices(context);
}

TestResult CameraBarcodeTest::run(TestExecutionContext* context) {
  if (!hasServices(context)) return kTestNotSupported;
  if (!context->getProgressReporter()->isReady()) return kTestNotPerformed;
  report(context, 0);

  CameraComponent* camera = test_steps::asCamera(context->getComponent());
  if (!camera) {
    reportFinally(context, camera_keys::kDeviceNotIdentified);
    return kTestNotPerformed;
  }
  if (isInterrupted(context, CaptureOk)) return kTestCancelled;
  report(context, 30);

  CameraFrameCapturer* capturer = camera->getFrameCapturer();
  if (const CaptureStatus status = capturer->start(); status != CaptureOk) {
    const TestResult result = test_steps::reportFailedStart(context, status);
    capturer->stop();
    return result;
  }
  report(context, 50);
  decoder.setDecoder(kDefaultFormats);
  decoder.setTryHarderBehaviour(kTryHarderBehaviour);

  const TestResult result = scan(capturer, context);
  capturer->stop();
  reportResult(result, context);
  report(context, 100);
  return result;
}

TestResult CameraBarcodeTest::scan(CameraFrameCapturer* capturer, TestExecutionContext* context) {
  FrameFormat format;
  if (capturer->getFrameFormat(format) != 0) {
    reportFinally(context, camera_keys::kFailedToInitialize);
    return kTestError;
  }
  report(context, 50);

  const QSize frameSize(static_cast<int>(format.width), static_cast<int>(format.height));
  const auto wrapper = std::make_shared<CameraBarcodeWidgetWrapper>(frameSize, context);
  InputRequest request({}, {}, 1, InputRequest::kDialog, 0);
  request.widget = wrapper.get();
  context->getProgressReporter()->submit(&request);

  const TestResult result = decodeFrames(capturer, format, *wrapper, context);
  wrapper->Close();
  return result;
}

TestResult CameraBarcodeTest::decodeFrames(CameraFrameCapturer* capturer, const FrameFormat& format,
                                           CameraBarcodeWidgetWrapper& wrapper, TestExecutionContext* context) {
  bool retried = false;
  for (;;) {
    if (isInterrupted(context, CaptureOk)) return kTestCancelled;
    std::uint8_t* buffer = nullptr;
    const CaptureStatus status = capturer->getFrame(buffer, test_steps::kFrameTimeoutMs);
    std::unique_ptr<std::uint8_t[]> frame(buffer);
    if (isInterrupted(context, status)) return kTestCancelled;

    const QImage lastFrame = test_steps::copyFrame(std::move(frame), format);
    // The user sees a mirror image, as in a mirror; the decoder gets the frame as captured.
    wrapper.SendFrame(lastFrame.mirrored(true, false));
    get_timer()->sleep(kFramePauseMs);
    decodedText = decoder.decodeImage(lastFrame, -1, -1, false);

    // What the frame shows wins over a button that was pressed in the same pass.
    const int answer = wrapper.GetResult();
    if (isPlausibleValue(decodedText)) return kTestPassed;
    if (!decodedText.isEmpty()) {
      if (retried) {
        invalidTwice = true;
        return kTestCancelled;
      }
      retried = true;
      wrapper.ShowRetry();
      QThread::msleep(kRetryPauseMs);
    }
    if (answer == kDialogClosed) return kTestCancelled;
    if (answer == kFailedByUser) return kTestFailed;
  }
}

bool CameraBarcodeTest::isInterrupted(TestExecutionContext* context, CaptureStatus status) {
  if (isAbortEvent(test_steps::currentEvent(context))) {
    reportFinally(context, camera_keys::kTestAbortedByEvent);
    return true;
  }
  if (context->isCancelled()) {
    report(context, 100);
    return true;
  }
  if (status == CaptureOk) return false;
  // A time-out counts as a plain capture failure here.
  reportFinally(context, status == CaptureDeviceRemoved ? camera_keys::kFailedToCaptureDeviceWasRemoved
                                                        : camera_keys::kFailedToCapture);
  return true;
}

void CameraBarcodeTest::reportResult(TestResult result, TestExecutionContext* context) {
  if (result == kTestPassed) {
    reportFinally(context, std::string(camera_keys::kBarcodeValue) + " " + decodedText.toStdString());
  } else if (result == kTestFailed) {
    reportFinally(context, camera_keys::kBarcodeFailScanMessage);
  } else if (result == kTestCancelled && invalidTwice) {
    invalidTwice = false;
    reportFinally(context, camera_keys::kBarcodeCanceledDueInvalidInput);
  }
}
