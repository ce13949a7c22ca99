#include "tests/test_steps.h"

#include "discovery/camera_component.h"
#include "module/host_services.h"
#include "module/keys/camera_keys.h"
#include "module/test_execution_context.h"

namespace test_steps {

CameraComponent* asCamera(SystemComponent* component) {
  return dynamic_cast<CameraComponent*>(component);
}

bool isAbortEvent(std::uint8_t event) {
  constexpr std::uint8_t kHarmlessBit = 1 << 2;
  return (event & ~kHarmlessBit) != 0;
}

bool hasServices(TestExecutionContext* context) {
  return context && context->getProgressReporter() && context->getMessageList() && context->getEventSource() &&
         context->getComponent();
}

std::uint8_t currentEvent(TestExecutionContext* context) {
  return static_cast<std::uint8_t>(context->getEventSource()->getEvent());
}

void report(TestExecutionContext* context, int percent) {
  context->getProgressReporter()->report(percent, {});
}

void reportFinally(TestExecutionContext* context, const std::string& key) {
  context->getProgressReporter()->report(100, key);
  context->getMessageList()->add(key, 0, 0);
}

std::uint32_t currentTick() {
  return static_cast<std::uint32_t>(get_timer()->now());
}

TestResult reportFailedStart(TestExecutionContext* context, CaptureStatus status) {
  // A camera that cannot be opened may be in other hands; one that opens and cannot be set up is an error.
  if (status == CaptureCannotOpenDevice) {
    reportFinally(context, camera_keys::kCannotAccessDevice);
    return kTestCancelled;
  }
  if (status == CaptureInitFailed || status == CaptureFailed) reportFinally(context, camera_keys::kFailedToInitialize);
  return kTestError;
}

QImage copyFrame(std::unique_ptr<std::uint8_t[]> frame, const FrameFormat& format) {
  const int width = static_cast<int>(format.width);
  const int height = static_cast<int>(format.height);
  return QImage(frame.get(), width, height, QImage::Format_RGB32).copy(0, 0, width, height);
}

}  // namespace test_steps
