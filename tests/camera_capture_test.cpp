#include "tests/camera_capture_test.h"

#include <QImage>
#include <QSize>

#include <memory>

#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"
#include "module/host_services.h"
#include "module/keys/camera_keys.h"
#include "module/keys/dialog_keys.h"
#include "module/keys/settings_keys.h"
#include "module/test_execution_context.h"
#include "tests/seconds.h"
#include "tests/test_steps.h"
#include "ui/camera_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "ui/input_request.h"

using test_steps::report;
using test_steps::reportFinally;

namespace {

constexpr std::uint32_t kDefaultTimeoutSeconds = 20;
constexpr std::uint32_t kFramePauseMs = 30;

InputRequest messageRequest(const std::string& key, std::uint32_t kind, TestExecutionContext* context) {
  InputRequest request(dialog_keys::kCameraCaptureTest, key, 1, kind, 0);
  request.extra = reinterpret_cast<std::uintptr_t>(context);
  return request;
}

// Maps the status of a failed frame wait to its key, which it reports, and to the result.
TestResult reportFailedFrame(TestExecutionContext* context, CaptureStatus status) {
  switch (status) {
    case CaptureDeviceRemoved:
      reportFinally(context, camera_keys::kFailedToCaptureDeviceWasRemoved);
      return kTestCancelled;
    case CaptureTimedOut:
      reportFinally(context, camera_keys::kFailedToCaptureDueTimeout);
      return kTestError;
    default:
      reportFinally(context, camera_keys::kFailedToCapture);
      return kTestCancelled;
  }
}

}  // namespace

CameraCaptureTest::~CameraCaptureTest() = default;

bool CameraCaptureTest::isApplicable(SystemComponent* component) {
  return test_steps::asCamera(component) != nullptr;
}

bool CameraCaptureTest::isImplemented() {
  return true;
}

bool CameraCaptureTest::isAbortEvent(std::uint8_t event) {
  return test_steps::isAbortEvent(event);
}

bool CameraCaptureTest::hasServices(TestExecutionContext* context) {
  return test_steps::hasServices(context);
}

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

TestResult CameraCaptureTest::run(TestExecutionContext* context) {
  if (!hasServices(context)) return kTestNotSupported;
  ProgressReporter* reporter = context->getProgressReporter();
  if (!reporter->isReady()) return kTestNotPerformed;
  report(context, 0);

  if (!isApplicable(context->getComponent())) {
    reportFinally(context, camera_keys::kDeviceNotIdentified);
    return kTestNotPerformed;
  }
  if (endedByHost(context)) return kTestCancelled;
  report(context, 1);

  InputRequest request = messageRequest(dialog_keys::kInitialMessage, InputRequest::kInitialMessage, context);
  reporter->submit(&request);
  if (request.answer != InputRequest::kConfirmed) {
    report(context, 100);
    if (isAbortEvent(test_steps::currentEvent(context))) reportFinally(context, camera_keys::kTestAbortedByEvent);
    return kTestCancelled;
  }
  report(context, 30);

  CameraFrameCapturer* capturer = test_steps::asCamera(context->getComponent())->getFrameCapturer();
  if (const CaptureStatus status = capturer->start(); status != CaptureOk) {
    const TestResult result = test_steps::reportFailedStart(context, status);
    capturer->stop();
    return result;
  }
  report(context, 50);
  TestResult result = showLivePicture(capturer, context);
  // Before the question: nobody needs the camera while the user thinks.
  capturer->stop();
  if (result == kTestPassed) result = askImageQuestion(context);
  report(context, 100);
  return result;
}

TestResult CameraCaptureTest::showLivePicture(CameraFrameCapturer* capturer, TestExecutionContext* context) {
  FrameFormat format;
  if (capturer->getFrameFormat(format) != 0) {
    reportFinally(context, camera_keys::kFailedToInitialize);
    return kTestError;
  }
  report(context, 50);
  const std::uint32_t startTick = test_steps::currentTick();

  const QSize frameSize(static_cast<int>(format.width), static_cast<int>(format.height));
  const auto wrapper = std::make_shared<CameraWidgetWrapper>(frameSize, context);
  InputRequest request({}, {}, 1, InputRequest::kDialog, 0);
  request.widget = wrapper.get();
  context->getProgressReporter()->submit(&request);

  const TestResult result = feedDialog(capturer, format, *wrapper, startTick, context);
  wrapper->Close();
  return result;
}

TestResult CameraCaptureTest::feedDialog(CameraFrameCapturer* capturer, const FrameFormat& format,
                                         CameraWidgetWrapper& wrapper, std::uint32_t startTick,
                                         TestExecutionContext* context) {
  for (;;) {
    if (endedByHost(context)) return kTestCancelled;

    std::uint8_t* buffer = nullptr;
    const CaptureStatus status = capturer->getFrame(buffer, test_steps::kFrameTimeoutMs);
    if (status != CaptureOk) return reportFailedFrame(context, status);

    wrapper.SendFrame(test_steps::copyFrame(std::unique_ptr<std::uint8_t[]>(buffer), format));
    get_timer()->sleep(kFramePauseMs);

    if (wrapper.GetResult() == kDialogClosed) return kTestPassed;
    if (get_timer()->elapsedSeconds(startTick, test_steps::currentTick()) > dialogTimeout) return kTestPassed;
  }
}

TestResult CameraCaptureTest::askImageQuestion(TestExecutionContext* context) {
  report(context, 80);
  InputRequest request = messageRequest(dialog_keys::kCheckCameraImage, InputRequest::kQuestion, context);
  context->getProgressReporter()->submit(&request);

  TestResult result = kTestCancelled;
  if (isAbortEvent(test_steps::currentEvent(context))) {
    reportFinally(context, camera_keys::kTestAbortedByEvent);
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

bool CameraCaptureTest::endedByHost(TestExecutionContext* context) {
  if (isAbortEvent(test_steps::currentEvent(context))) {
    reportFinally(context, camera_keys::kTestAbortedByEvent);
    return true;
  }
  if (!context->isCancelled()) return false;
  report(context, 100);
  return true;
}
