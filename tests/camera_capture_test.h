#pragma once

#include <cstdint>

#include "tests/camera_test.h"

class InputRequest;

/// Shows the live picture of a camera and asks the user whether it was right.
class CameraCaptureTest : public CameraTest {
 public:
  using CameraTest::CameraTest;

  [[nodiscard]] TestResult run(TestExecutionContext* context) override;
  /// Reads how long the picture is shown, in seconds. Throws std::invalid_argument or std::out_of_range when the value
  /// is not a 32-bit number; the time-out then stays as it was.
  [[nodiscard]] bool configure(TestSettings settings, std::uint64_t extra) override;

  [[nodiscard]] virtual TestResult askImageQuestion(TestExecutionContext* context);

 private:
  static void submitMessage(InputRequest& request, TestExecutionContext* context);
  [[nodiscard]] bool isMessageConfirmed(TestExecutionContext* context);
  [[nodiscard]] TestResult showLivePicture(CameraFrameCapturer& capturer, TestExecutionContext* context);

  static constexpr std::uint32_t kDefaultTimeoutSeconds = 20;

  /// Seconds for which the picture is shown at most.
  std::uint32_t dialogTimeout = kDefaultTimeoutSeconds;
};
