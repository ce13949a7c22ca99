#pragma once

#include <QApplication>
#include <QDialog>
#include <QImage>

#include <cstring>
#include <functional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/abstract_widget_wrapper.h"
#include "unit_tests/fakes/fake_context.h"
#include "unit_tests/fakes/fake_host_services.h"

/// What the tests of both camera tests share: a camera with a scripted capturer, a host that confirms and shows what it
/// is asked to, and a clock that only the code under test moves.
class CameraTestFixture : public testing::Test {
 protected:
  CameraTestFixture() {
    resetFakeHostServices();
    context.component = &camera;
    context.onSubmit = [this](InputRequest& request) { answer(request); };
    frame = QImage(4, 2, QImage::Format_RGB32);
    frame.fill(Qt::blue);
  }
  ~CameraTestFixture() override {
    for (QWidget* widget : QApplication::topLevelWidgets()) delete widget;
  }

  /// The capturer starts, has a format, delivers `frame` and must be stopped exactly once.
  void expectCapture() {
    using testing::_;
    EXPECT_CALL(camera.capturer, start()).WillOnce(testing::Return(CaptureOk));
    EXPECT_CALL(camera.capturer, stop()).WillOnce([this] {
      context.told.push_back(message("(stopped)"));
      return CaptureOk;
    });
    EXPECT_CALL(camera.capturer, getFrameFormat(_)).WillOnce([this](FrameFormat& format) {
      format = {static_cast<std::uint32_t>(frame.width()), static_cast<std::uint32_t>(frame.height()), true};
      return 0;
    });
    ON_CALL(camera.capturer, getFrame(_, 5000)).WillByDefault([this](std::uint8_t*& buffer, std::uint32_t) {
      ++framesTaken;
      if (onFrame) {
        if (const CaptureStatus status = onFrame(); status != CaptureOk) return status;
      }
      buffer = new std::uint8_t[static_cast<std::size_t>(frame.sizeInBytes())];
      std::memcpy(buffer, frame.constBits(), static_cast<std::size_t>(frame.sizeInBytes()));
      return CaptureOk;
    });
    EXPECT_CALL(camera.capturer, getFrame(_, 5000)).Times(testing::AnyNumber());
  }

  void expectFailedStart(CaptureStatus status) {
    EXPECT_CALL(camera.capturer, start()).WillOnce(testing::Return(status));
    EXPECT_CALL(camera.capturer, stop()).WillOnce(testing::Return(CaptureNotRunning));
  }

  static QDialog* openDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* dialog = qobject_cast<QDialog*>(widget); dialog && dialog->isVisible()) return dialog;
    }
    return nullptr;
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
  FakeCamera camera;
  QImage frame;
  int framesTaken = 0;
  /// Called for every frame that is asked for; a status other than CaptureOk is what the wait ends with.
  std::function<CaptureStatus()> onFrame;
  std::function<void()> onQuestion;
  std::uint32_t initialAnswer = InputRequest::kConfirmed;
  std::uint32_t questionAnswer = InputRequest::kYes;
};
