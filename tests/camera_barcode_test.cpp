#include "tests/camera_barcode_test.h"

#include <QImage>
#include <QThread>

#include "module/host_services.h"
#include "module/keys/camera_keys.h"
#include "tests/barcode_steps.h"
#include "tests/run_dialog.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/dialog_result.h"

namespace {

constexpr std::uint32_t kFramePauseMs = 5;
constexpr unsigned long kRetryPauseMs = 5000;

// A time-out counts as a plain failure here.
constexpr CameraTest::FailureOutcome kFrameFailures[] = {
    {CaptureDeviceRemoved, camera_keys::kFailedToCaptureDeviceWasRemoved, kTestCancelled},
    {CameraTest::kAnyOtherFailure, camera_keys::kFailedToCapture, kTestCancelled},
};

}  // namespace

TestResult CameraBarcodeTest::run(TestExecutionContext* context) try {
  const auto [camera, refusal] = admit(context);
  if (!camera) return refusal;
  auto [capture, result] = start(*camera, context);
  if (!capture) return result;

  configureDecoder(decoder);
  result = scan(*capture, context);
  capture.end();
  reportResult(result, context);
  report(context, 100);
  return result;
} catch (const ServiceGone&) {
  return kTestNotSupported;
}

TestResult CameraBarcodeTest::scan(CameraFrameCapturer& capturer, TestExecutionContext* context) {
  const auto format = readFormat(capturer, context);
  if (!format) return kTestError;

  return runDialog<CameraBarcodeWidgetWrapper>(*format, context, [&](CameraBarcodeWidgetWrapper& wrapper) {
    QImage lastFrame;
    for (bool retried = false;;) {
      if (isInterrupted(context)) return kTestCancelled;
      const CaptureStatus status = nextFrame(capturer, *format, lastFrame);
      if (isInterrupted(context)) return kTestCancelled;
      if (status != CaptureOk) return reportFailure(context, kFrameFailures, status);
      showMirrored(lastFrame, wrapper);
      get_timer()->sleep(kFramePauseMs);
      decodedText = decodeFrame(decoder, lastFrame);
      if (const auto result = judge(wrapper, retried)) return *result;
    }
  });
}

std::optional<TestResult> CameraBarcodeTest::judge(CameraBarcodeWidgetWrapper& wrapper, bool& retried) {
  const int answer = wrapper.GetResult();
  if (isPlausibleValue(decodedText)) return kTestPassed;
  if (!decodedText.isEmpty()) {
    if (retried) {
      invalidTwice = true;
      return kTestCancelled;
    }
    // A first implausible value gets its pause even when a button has ended the scan already.
    retried = true;
    wrapper.ShowRetry();
    QThread::msleep(kRetryPauseMs);
  }
  if (answer == kDialogClosed) return kTestCancelled;
  if (answer == kFailedByUser) return kTestFailed;
  return std::nullopt;
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
