#include "tests/camera_test.h"

#include <QImage>

#include <algorithm>
#include <memory>
#include <string>

#include "discovery/camera_component.h"
#include "module/keys/camera_keys.h"

namespace {

constexpr std::uint32_t kFrameTimeoutMs = 5000;

// A camera that cannot be opened may be in other hands; one that opens and cannot be set up is an error.
constexpr CameraTest::FailureOutcome kStartFailures[] = {
    {CaptureCannotOpenDevice, camera_keys::kCannotAccessDevice, kTestCancelled},
    {CaptureInitFailed, camera_keys::kFailedToInitialize, kTestError},
    {CaptureFailed, camera_keys::kFailedToInitialize, kTestError},
    {CameraTest::kAnyOtherFailure, {}, kTestError},
};

CameraComponent* asCamera(SystemComponent* component) {
  return dynamic_cast<CameraComponent*>(component);
}

}  // namespace

bool CameraTest::isApplicable(SystemComponent* component) {
  return asCamera(component) != nullptr;
}

bool CameraTest::isImplemented() {
  return true;
}

bool CameraTest::isAbortEvent(std::uint8_t event) {
  constexpr std::uint8_t kHarmlessBit = 1 << 2;
  return (event & ~kHarmlessBit) != 0;
}

bool CameraTest::hasServices(TestExecutionContext* context) {
  return context && context->getProgressReporter() && context->getMessageList() && context->getEventSource() &&
         context->getComponent();
}

CaptureStatus CameraTest::nextFrame(CameraFrameCapturer& capturer, const FrameFormat& format, QImage& frame) {
  std::uint8_t* buffer = nullptr;
  const CaptureStatus status = capturer.getFrame(buffer, kFrameTimeoutMs);
  const std::unique_ptr<std::uint8_t[]> owned(buffer);
  if (status != CaptureOk) return status;
  const int width = static_cast<int>(format.width);
  const int height = static_cast<int>(format.height);
  frame = QImage(buffer, width, height, QImage::Format_RGB32).copy(0, 0, width, height);
  return CaptureOk;
}

std::pair<CameraComponent*, TestResult> CameraTest::admit(TestExecutionContext* context) {
  if (!hasServices(context)) return {nullptr, kTestNotSupported};
  if (!need(context->getProgressReporter()).isReady()) return {nullptr, kTestNotPerformed};
  report(context, 0);

  CameraComponent* const camera = asCamera(context->getComponent());
  if (!camera) {
    reportFinally(context, camera_keys::kDeviceNotIdentified);
    return {nullptr, kTestNotPerformed};
  }
  if (isInterrupted(context)) return {nullptr, kTestCancelled};
  return {camera, kTestPassed};
}

std::pair<CameraTest::RunningCapture, TestResult> CameraTest::start(CameraComponent& camera,
                                                                    TestExecutionContext* context) {
  report(context, 30);
  RunningCapture capture(*camera.getFrameCapturer());
  if (const CaptureStatus status = capture->start(); status != CaptureOk) {
    const TestResult result = reportFailure(context, kStartFailures, status);
    capture.end();
    return {RunningCapture(), result};
  }
  report(context, 50);
  return {std::move(capture), kTestPassed};
}

std::optional<FrameFormat> CameraTest::readFormat(CameraFrameCapturer& capturer, TestExecutionContext* context) {
  FrameFormat format;
  if (capturer.getFrameFormat(format) != 0) {
    reportFinally(context, camera_keys::kFailedToInitialize);
    return std::nullopt;
  }
  report(context, 50);
  return format;
}

bool CameraTest::reportAbortEvent(TestExecutionContext* context) {
  // Only the low 8 bits count.
  if (!isAbortEvent(static_cast<std::uint8_t>(need(context->getEventSource()).getEvent()))) return false;
  reportFinally(context, camera_keys::kTestAbortedByEvent);
  return true;
}

bool CameraTest::isInterrupted(TestExecutionContext* context) {
  if (reportAbortEvent(context)) return true;
  if (!context->isCancelled()) return false;
  report(context, 100);
  return true;
}

void CameraTest::report(TestExecutionContext* context, int percent) {
  need(context->getProgressReporter()).report(percent, {});
}

void CameraTest::reportFinally(TestExecutionContext* context, std::string_view key) {
  const std::string text(key);
  need(context->getProgressReporter()).report(100, text);
  need(context->getMessageList()).add(text, 0, 0);
}

TestResult CameraTest::reportFailure(TestExecutionContext* context, std::span<const FailureOutcome> outcomes,
                                     CaptureStatus status) {
  const auto last = outcomes.end() - 1;
  const FailureOutcome& outcome =
      *std::find_if(outcomes.begin(), last, [&](auto& row) { return row.status == status; });
  if (!outcome.key.empty()) reportFinally(context, outcome.key);
  return outcome.result;
}
