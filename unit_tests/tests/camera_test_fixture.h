#pragma once

#include <QApplication>
#include <QDialog>
#include <QPushButton>

#include <functional>
#include <initializer_list>
#include <vector>

#include <gtest/gtest.h>

#include "ui/abstract_widget_wrapper.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/fakes/fake_host_services.h"

/// One list of reports after another.
inline std::vector<Told> joined(std::initializer_list<std::vector<Told>> lists) {
  std::vector<Told> all;
  for (const std::vector<Told>& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

/// What the tests of both camera tests share: a camera with a scripted capturer, a host that confirms and shows what it
/// is asked to, and a clock that only the code under test moves.
class CameraTestFixture : public testing::Test {
 protected:
  CameraTestFixture() {
    resetFakeHostServices();
    context.component = &camera;
    context.onSubmit = [this](InputRequest& request) { answer(request); };
    capturer.frame.fill(Qt::blue);
  }
  ~CameraTestFixture() override {
    for (QWidget* widget : QApplication::topLevelWidgets()) delete widget;
  }

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
    switch (request.secondCode) {
      case InputRequest::kInitialMessage:
        request.answer = initialAnswer;
        break;
      case InputRequest::kQuestion:
        if (onQuestion) onQuestion();
        request.answer = questionAnswer;
        break;
      default:
        request.widget->CreateWidget(nullptr, &eventFilter);
    }
  }

  QObject eventFilter;
  FakeContext context;
  FakeCamera camera{context.told};
  FakeCapturer& capturer = camera.capturer;
  std::function<void()> onQuestion;
  std::uint32_t initialAnswer = InputRequest::kConfirmed;
  std::uint32_t questionAnswer = InputRequest::kYes;
};
