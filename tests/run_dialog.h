#pragma once

#include <QSize>

#include <memory>

#include "tests/camera_test.h"
#include "ui/input_request.h"

template <class Wrapper, class Loop>
TestResult CameraTest::runDialog(const FrameFormat& format, TestExecutionContext* context, Loop loop) {
  const QSize size(static_cast<int>(format.width), static_cast<int>(format.height));
  const auto wrapper = std::make_shared<Wrapper>(size, context);
  InputRequest request({}, {}, 1, InputRequest::kDialog, 0);
  request.widget = wrapper.get();
  EndOfRun<Wrapper, &Wrapper::Close> dialog(*wrapper);
  need(context->getProgressReporter()).submit(&request);
  const TestResult result = loop(*wrapper);
  dialog.end();
  return result;
}
