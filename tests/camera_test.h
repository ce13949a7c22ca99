#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "capture/camera_frame_capturer.h"
#include "module/test.h"
#include "module/test_execution_context.h"
#include "tests/end_of_run.h"

class CameraComponent;
class QImage;

/// What both diagnostics share: the checks before a run, the camera's start and its frames, the reports. Keeps nothing
/// from run to run; all of it runs on the test's thread.
class CameraTest : public Test {
 public:
  using Test::Test;

  bool isApplicable(SystemComponent* component) override;
  bool isImplemented() override;

  /// Whether an event of the host ends a test: every value but 0 and 4.
  virtual bool isAbortEvent(std::uint8_t event);
  /// Whether the context offers everything that a camera test uses.
  virtual bool hasServices(TestExecutionContext* context);

  /// What a failure of the capturer means for a run. A table ends with the row for the failures that it does not name.
  struct FailureOutcome {
    CaptureStatus status;
    std::string_view key;  ///< Empty: there is no message.
    TestResult result;
  };
  static constexpr CaptureStatus kAnyOtherFailure = CaptureOk;

  /// Thrown where the context does not yield a service that it yielded before; such a run is not supported.
  struct ServiceGone {};

  /// Waits for a frame, for 5 s at most. On CaptureOk `frame` holds a copy of its own; otherwise it is untouched.
  [[nodiscard]] static CaptureStatus nextFrame(CameraFrameCapturer& capturer, const FrameFormat& format, QImage& frame);

 protected:
  using RunningCapture = EndOfRun<CameraFrameCapturer, &CameraFrameCapturer::stop>;

  /// The first steps of a run: the camera under test, or null and the result with which the run is over.
  [[nodiscard]] std::pair<CameraComponent*, TestResult> admit(TestExecutionContext* context);
  /// Starts the camera. On failure reports it, stops the capturer again and returns no capture and the result.
  [[nodiscard]] static std::pair<RunningCapture, TestResult> start(CameraComponent& camera,
                                                                   TestExecutionContext* context);
  /// The format of the frames to come, or nothing after a failure that it reported; the result is then kTestError.
  [[nodiscard]] static std::optional<FrameFormat> readFormat(CameraFrameCapturer& capturer,
                                                             TestExecutionContext* context);

  /// Has the host show the dialog of a new wrapper, runs `loop` over the wrapper and closes the dialog. Defined in
  /// tests/run_dialog.h.
  template <class Wrapper, class Loop>
  [[nodiscard]] static TestResult runDialog(const FrameFormat& format, TestExecutionContext* context, Loop loop);

  /// A service as the context yields it during a run.
  template <class Service>
  [[nodiscard]] static Service& need(Service* service) {
    if (!service) throw ServiceGone();
    return *service;
  }
  /// Reports the host's current event if it ends the test, and returns whether it does.
  [[nodiscard]] bool reportAbortEvent(TestExecutionContext* context);
  /// Whether an event or a cancellation of the host ends the test; reports it then.
  [[nodiscard]] bool isInterrupted(TestExecutionContext* context);

  /// Reports a progress without a text.
  static void report(TestExecutionContext* context, int percent);
  /// Reports 100 % with a key, then adds the same key to the messages.
  static void reportFinally(TestExecutionContext* context, std::string_view key);
  /// Looks a failed status up, reports its key and returns its result.
  [[nodiscard]] static TestResult reportFailure(TestExecutionContext* context, std::span<const FailureOutcome> outcomes,
                                                CaptureStatus status);
};
