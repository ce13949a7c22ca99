#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"
#include "module/test_execution_context.h"
#include "ui/input_request.h"

/// One thing that a test told its host: a progress, or a message when `percent` is -1.
struct Told {
  int percent = -1;
  std::string text;

  bool operator==(const Told&) const = default;
};

inline Told progress(int percent, std::string text = {}) {
  return {percent, std::move(text)};
}
inline Told message(std::string key) {
  return {-1, std::move(key)};
}
/// Both halves of a final report, in their order.
#define FINAL_REPORT(key) progress(100, key), message(key)

inline void PrintTo(const Told& told, std::ostream* out) {
  *out << (told.percent < 0 ? "message" : std::to_string(told.percent) + " %") << " \"" << told.text << '"';
}

/// A host that writes down what a test tells it, in order, and answers requests as the test case says.
class FakeContext : public TestExecutionContext, public MessageList, public ProgressReporter, public EventSource {
 public:
  SystemComponent* getComponent() override { return component; }
  MessageList* getMessageList() override { return withMessageList ? this : nullptr; }
  ProgressReporter* getProgressReporter() override { return withReporter ? this : nullptr; }
  EventSource* getEventSource() override { return withEventSource ? this : nullptr; }
  bool isCancelled() override { return cancelled; }

  void add(std::string key, std::uint64_t, std::uint64_t) override { told.push_back(message(std::move(key))); }
  void report(int percent, const std::string& text) override { told.push_back(progress(percent, text)); }
  bool isReady() override { return ready; }
  std::uint32_t getEvent() override { return event; }
  void submit(InputRequest* request) override {
    requests.push_back(request->secondText);
    if (onSubmit) onSubmit(*request);
  }

  SystemComponent* component = nullptr;
  bool withMessageList = true;
  bool withReporter = true;
  bool withEventSource = true;
  bool ready = true;
  bool cancelled = false;
  std::uint32_t event = 0;
  std::function<void(InputRequest&)> onSubmit;
  std::vector<Told> told;
  std::vector<std::string> requests;
};

class MockCapturer : public CameraFrameCapturer {
 public:
  MOCK_METHOD(CaptureStatus, start, (), (override));
  MOCK_METHOD(CaptureStatus, getFrame, (std::uint8_t * &buffer, std::uint32_t timeoutMs), (override));
  MOCK_METHOD(CaptureStatus, stop, (), (override));
  MOCK_METHOD(int, getFrameFormat, (FrameFormat & format), (override));
};

/// A camera whose capturer is a mock.
class FakeCamera : public CameraComponent {
 public:
  FakeCamera() : CameraComponent(CameraInfo()) {}
  CameraFrameCapturer* getFrameCapturer() override { return &capturer; }

  testing::StrictMock<MockCapturer> capturer;
};

/// A component that is no camera.
class FakeOtherComponent : public SystemComponent {
 public:
  void* hostObjectAtPlace5() override { return nullptr; }
};
