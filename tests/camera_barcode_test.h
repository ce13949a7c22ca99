#pragma once

#include <QString>
#include <QZXing.h>

#include "tests/camera_test.h"

class CameraBarcodeWidgetWrapper;

/// Reads a barcode with a camera: passes on the first plausible value, gives an implausible one one more try.
class CameraBarcodeTest : public CameraTest {
 public:
  explicit CameraBarcodeTest(const ItemId& itemId) : CameraTest(itemId) {}

  [[nodiscard]] TestResult run(TestExecutionContext* context) override;

 private:
  [[nodiscard]] TestResult scan(CameraFrameCapturer& capturer, TestExecutionContext* context);
  /// What the decoded text means, after it the button: the result, or nothing while the scan goes on.
  [[nodiscard]] std::optional<TestResult> judge(CameraBarcodeWidgetWrapper& wrapper, bool& retried);
  void reportResult(TestResult result, TestExecutionContext* context);

  QZXing decoder{nullptr};
  /// What the decoder read in the latest frame; empty when it found nothing.
  QString decodedText;
  /// Set when a second implausible value ended the run; cleared when that is reported.
  bool invalidTwice = false;
};
