#pragma once

#include <QApplication>
#include <QDialog>
#include <QPushButton>

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "module/identifiers.h"
#include "tests/camera_barcode_test.h"
#include "tests/camera_capture_test.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/fakes/fake_host_services.h"

/// Both halves of a final report, in their order.
inline std::string finalReport(const std::string& key) {
  return " 100:" + key + " " + key;
}

/// What the tests of both camera tests share: one of them, a camera with a scripted capturer, a host that confirms and
/// shows what it is asked to, and a clock that only the code under test moves.
class CameraTestFixture : public testing::Test {
 protected:
  explicit CameraTestFixture(bool capture) : isCapture(capture) {
    if (isCapture) test = std::make_unique<CameraCaptureTest>(kCaptureTestId);
    resetFakeHostServices();
    context.component = &camera;
    context.onSubmit = [this](InputRequest& request) { answer(request); };
    capturer.frame.fill(Qt::blue);
  }
  ~CameraTestFixture() override {
    for (QWidget* widget : QApplication::topLevelWidgets()) delete widget;
  }

  void setTimeout(const std::string& seconds) {
    EXPECT_TRUE(test->configure({{"ORCA", {{"ORCA_TEST_TIMEOUT", seconds}}}}, 0));
  }
  TestResult run() {
    context.told.clear();
    const TestResult result = test->run(&context);
    EXPECT_EQ(openDialog(), nullptr);
    return result;
  }
  [[nodiscard]] std::string untilStart() const {
    return isCapture ? " 0 1 ?INITIAL_MESSAGE 30 (started)" : " 0 30 (started)";
  }
  [[nodiscard]] std::string untilPicture() const { return untilStart() + " 50 50 ?"; }

  /// The codes of codes.json by their places.
  static QImage code(int place) {
    return QImage(QStringLiteral(CODES_FOLDER "/code-0-%1.png").arg(place)).convertToFormat(QImage::Format_RGB32);
  }
  static constexpr int kPlausible = 0;
  static constexpr int kWithHyphen = 1;

  static QDialog* openDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* dialog = qobject_cast<QDialog*>(widget); dialog && dialog->isVisible()) return dialog;
    }
    return nullptr;
  }
  static void pressFail() { openDialog()->findChild<QPushButton*>("camera_barcode_test_button_fail")->click(); }

  /// What `step` does happens in the pause after each frame.
  static void afterFrame(std::function<void()> step) {
    fakeHostServices().onSleep = [step = std::move(step)](std::uint32_t) { step(); };
  }

  void answer(InputRequest& request) {
    const bool isMessage = request.secondCode != 3;
    EXPECT_EQ(request.firstText, isMessage ? "CAMERA_CAPTURE_TEST" : "");
    EXPECT_EQ(request.firstCode, 1u);
    EXPECT_EQ(request.thirdCode, 0u);
    EXPECT_EQ(request.widget == nullptr, isMessage);
    EXPECT_EQ(request.extra,
              isMessage ? reinterpret_cast<std::uintptr_t>(static_cast<TestExecutionContext*>(&context)) : 0);
    switch (request.secondCode) {
      case 0:
        request.answer = initialAnswer;
        break;
      case 2:
        if (onQuestion) onQuestion();
        request.answer = questionAnswer;
        break;
      default:
        ASSERT_EQ(request.secondCode, 3u);
        EXPECT_TRUE(request.widget->CreateWidget(nullptr, &eventFilter));
        framesShown = 0;
        const auto count = [this] { ++framesShown; };
        if (auto* const capture = dynamic_cast<CameraWidgetWrapper*>(request.widget)) {
          QObject::connect(capture, &CameraWidgetWrapper::UpdateFrame, count);
        } else if (auto* const barcode = dynamic_cast<CameraBarcodeWidgetWrapper*>(request.widget)) {
          QObject::connect(barcode, &CameraBarcodeWidgetWrapper::UpdateFrame, count);
        }
    }
  }

  const bool isCapture;
  std::unique_ptr<CameraTest> test = std::make_unique<CameraBarcodeTest>(kBarcodeTestId);
  QObject eventFilter;
  FakeContext context;
  FakeCamera camera{context.told};
  FakeCapturer& capturer = camera.capturer;
  std::function<void()> onQuestion;
  /// Of the last picture, without the black one with which the dialog opens.
  int framesShown = 0;
  std::uint32_t initialAnswer = 1;
  std::uint32_t questionAnswer = 3;
};
