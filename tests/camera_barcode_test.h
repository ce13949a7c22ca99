#pragma once

#include <QString>
#include <QZXing.h>

#include <cstdint>

#include "capture/camera_frame_capturer.h"
#include "module/test.h"

class CameraBarcodeWidgetWrapper;

/// Reads a barcode with a camera: passes on the first plausible value, gives an implausible one one more try.
class CameraBarcodeTest : public Test {
 public:
  explicit CameraBarcodeTest(const ItemId& itemId);
  ~CameraBarcodeTest() override;

  bool isApplicable(SystemComponent* component) override;
  TestResult run(TestExecutionContext* context) override;
  bool isImplemented() override;

  virtual bool isAbortEvent(std::uint8_t event);
  virtual bool hasServices(TestExecutionContext* context);

 private:
  TestResult scan(CameraFrameCapturer* capturer, TestExecutionContext* context);
  TestResult decodeFrames(CameraFrameCapturer* capturer, const FrameFormat& format, CameraBarcodeWidgetWrapper& wrapper,
                          TestExecutionContext* context);
  bool isInterrupted(TestExecutionContext* context, CaptureStatus status);
  void reportResult(TestResult result, TestExecutionContext* context);

  QZXing decoder;
  /// What the decoder read in the latest frame; empty when it found nothing.
  QString decodedText;
  /// Set when a second implausible value ended the run; cleared when that is reported.
  bool invalidTwice = false;
};
