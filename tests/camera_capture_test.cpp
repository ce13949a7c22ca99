#include "tests/camera_capture_test.h"

#include <QImage>

#include "module/host_services.h"
#include "module/keys/camera_keys.h"
#include "module/keys/dialog_keys.h"
#include "module/keys/settings_keys.h"
#include "tests/run_dialog.h"
#include "tests/seconds.h"
#include "ui/camera_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "ui/input_request.h"

namespace {

constexpr std::uint32_t kFramePauseMs = 30;

constexpr CameraTest::FailureOutcome kFrameFailures[] = {
    {CaptureDeviceRemoved, camera_keys::kFailedToCaptureDeviceWasRemoved, kTestCancelled},
    {CaptureTimedOut, camera_keys::kFailedToCaptureDueTimeout, kTestError},
    {CameraTest::kAnyOtherFailure, camera_keys::kFailedToCapture, kTestCancelled},
};

std::uint32_t currentTick() {
  return static_cast<std::uint32_t>(get_timer()->now());
}

}  // namespace

bool CameraCaptureTest::configure(TestSettings settings, std::uint64_t) {
  const auto section = settings.find(settings_keys::kOrca);
  if (section != settings.end()) {
    for (const char* key : {settings_keys::kOrcaTestTimeoutCameraCaptureTest, settings_keys::kOrcaTestTimeout}) {
      const auto value = section->second.find(key);
      if (value == section->second.end()) continue;
      dialogTimeout = secondsFromText(value->second);
      return true;
    }
  }
  dialogTimeout = kDefaultTimeoutSeconds;
  return true;
}

TestResult CameraCaptureTest::run(TestExecutionContext* context) try {
  const auto [camera, refusal] = admit(context);
  if (!camera) return refusal;
  report(context, 1);
  if (!isMessageConfirmed(context)) return kTestCancelled;

  auto [capture, result] = start(*camera, context);
  if (!capture) return result;
  result = showLivePicture(*capture, context);
  // Before the question: nobody needs the camera while the user thinks.
  capture.end();
  if (result == kTestPassed) result = askImageQuestion(context);
  report(context, 100);
  return result;
} catch (const ServiceGone&) {
  return kTestNotSupported;
}

void CameraCaptureTest::submitMessage(InputRequest& request, TestExecutionContext* context) {
  request.extra = reinterpret_cast<std::uintptr_t>(context);
  need(context->getProgressReporter()).submit(&request);
}

bool CameraCaptureTest::isMessageConfirmed(TestExecutionContext* context) {
  InputRequest request(dialog_keys::kCameraCaptureTest, dialog_keys::kInitialMessage, 1, InputRequest::kInitialMessage,
                       0);
  submitMessage(request, context);
  if (request.answer == InputRequest::kConfirmed) return true;
  report(context, 100);
  static_cast<void>(reportAbortEvent(context));  // the run is over either way
  return false;
}

TestResult CameraCaptureTest::showLivePicture(CameraFrameCapturer& capturer, TestExecutionContext* context) {
  const auto format = readFormat(capturer, context);
  if (!format) return kTestError;
  const std::uint32_t startTick = currentTick();

  return runDialog<CameraWidgetWrapper>(*format, context, [&](CameraWidgetWrapper& wrapper) -> TestResult {
    QImage lastFrame;
    for (;;) {
      if (isInterrupted(context)) return kTestCancelled;
      const CaptureStatus status = nextFrame(capturer, *format, lastFrame);
      if (status != CaptureOk) return reportFailure(context, kFrameFailures, status);
      wrapper.SendFrame(lastFrame);
      get_timer()->sleep(kFramePauseMs);
      if (wrapper.GetResult() == kDialogClosed) return kTestPassed;
      if (get_timer()->elapsedSeconds(startTick, currentTick()) > dialogTimeout) return kTestPassed;
    }
  });
}

TestResult CameraCaptureTest::askImageQuestion(TestExecutionContext* context) {
  report(context, 80);
  InputRequest request(dialog_keys::kCameraCaptureTest, dialog_keys::kCheckCameraImage, 1, InputRequest::kQuestion, 0);
  submitMessage(request, context);

  TestResult result = kTestCancelled;
  if (reportAbortEvent(context)) {
    request.answer = InputRequest::kOverriddenByEvent;
  } else if (request.answer == InputRequest::kYes) {
    result = kTestPassed;
  } else if (request.answer == InputRequest::kNo) {
    reportFinally(context, camera_keys::kCameraResultFailed);
    result = kTestFailed;
  }
  report(context, 100);
  return context->isCancelled() ? kTestCancelled : result;
}
