#pragma once

#include <cstdint>

#include "module/test.h"

class CameraFrameCapturer;
class CameraWidgetWrapper;
struct FrameFormat;

/// Shows the live picture of a camera and asks the user whether it was right.
class CameraCaptureTest : public Test {
 public:
  using Test::Test;
  ~CameraCaptureTest() override;

  bool isApplicable(SystemComponent* component) override;
  TestResult run(TestExecutionContext* context) override;
  bool isImplemented() override;
  /// Reads how long the picture is shown, in seconds. Throws std::invalid_argument or std::out_of_range when the value
  /// is not a 32-bit number; the time-out then stays as it was.
  bool configure(TestSettings settings, std::uint64_t extra) override;

  virtual bool isAbortEvent(std::uint8_t event);
  virtual bool hasServices(TestExecutionContext* context);
  virtual TestResult askImageQuestion(TestExecutionContext* context);

 private:
  TestResult showLivePicture(CameraFrameCapturer* capturer, TestExecutionContext* context);
  TestResult feedDialog(CameraFrameCapturer* capturer, const FrameFormat& format, CameraWidgetWrapper& wrapper,
                        std::uint32_t startTick, TestExecutionContext* context);
  bool endedByHost(TestExecutionContext* context);

  /// Seconds for which the picture is shown at most.
  std::uint32_t dialogTimeout = 20;
};
