#pragma once

#include <QImage>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"
#include "module/test_execution_context.h"
#include "ui/input_request.h"

/// A host that writes down what a test tells it, each with a blank before it: a message's key, or a progress's
/// percentage and, behind a colon, its text, or a request's second text behind a question mark. Answers requests as the
/// test case says.
class FakeContext : public TestExecutionContext, public MessageList, public ProgressReporter, public EventSource {
 public:
  SystemComponent* getComponent() override {
    ++componentQueries;
    return called(component);
  }
  MessageList* getMessageList() override { return called(withMessageList ? this : nullptr); }
  ProgressReporter* getProgressReporter() override { return called(withReporter ? this : nullptr); }
  EventSource* getEventSource() override { return called(withEventSource ? this : nullptr); }
  bool isCancelled() override { return called(cancelled.load()); }

  void add(std::string key, std::uint64_t first, std::uint64_t second) override {
    EXPECT_TRUE(first == 0 && second == 0);
    told += called(' ' + key);
  }
  void report(int percent, const std::string& text) override {
    told += called(' ' + std::to_string(percent) + (text.empty() ? "" : ':' + text));
  }
  bool isReady() override { return called(ready); }
  std::uint32_t getEvent() override { return called(event); }
  void submit(InputRequest* request) override {
    told += called(" ?" + request->secondText);
    if (onSubmit) onSubmit(*request);
    called(0);
  }

  SystemComponent* component = nullptr;
  bool withMessageList = true;
  bool withReporter = true;
  bool withEventSource = true;
  bool ready = true;
  /// May be set on any thread.
  std::atomic<bool> cancelled = false;
  std::uint32_t event = 0;
  /// Called by every operation of the host, twice while it shows a request.
  std::function<void()> onCall;
  std::function<void(InputRequest&)> onSubmit;
  int componentQueries = 0;
  std::string told;

 private:
  template <class Value>
  Value called(Value value) {
    if (onCall) onCall();
    return value;
  }
};

/// A capturer that delivers one frame again and again, and writes down among what the host is told when it starts and
/// stops.
class FakeCapturer : public CameraFrameCapturer {
 public:
  explicit FakeCapturer(std::string& list) : told(list) {}

  CaptureStatus start() override {
    told += " (started)";
    if (onCall) onCall();
    return startStatus;
  }
  CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) override {
    EXPECT_EQ(timeoutMs, 5000u);
    ++framesTaken;
    const CaptureStatus status = onFrame ? onFrame() : CaptureOk;
    if (status != CaptureOk) return status;
    const auto size = static_cast<std::size_t>(frame.sizeInBytes());
    buffer = new std::uint8_t[size];
    std::memcpy(buffer, frame.constBits(), size);
    return CaptureOk;
  }
  CaptureStatus stop() override {
    told += " (stopped)";
    if (onCall) onCall();
    return CaptureOk;
  }
  int getFrameFormat(FrameFormat& format) override {
    if (onCall) onCall();
    if (!hasFormat) return 1;
    format = {static_cast<std::uint32_t>(frame.width()), static_cast<std::uint32_t>(frame.height()), true};
    return 0;
  }

  CaptureStatus startStatus = CaptureOk;
  bool hasFormat = true;
  QImage frame{4, 2, QImage::Format_RGB32};
  int framesTaken = 0;
  /// Called by every operation but `getFrame`, after it is on record.
  std::function<void()> onCall;
  /// Called for every frame that is asked for; a status other than CaptureOk is what the wait ends with.
  std::function<CaptureStatus()> onFrame;

 private:
  std::string& told;
};

class FakeCamera : public CameraComponent {
 public:
  explicit FakeCamera(std::string& told) : CameraComponent(CameraInfo()), capturer(told) {}
  CameraFrameCapturer* getFrameCapturer() override { return &capturer; }

  FakeCapturer capturer;
};

/// A component that is no camera.
class FakeOtherComponent : public SystemComponent {
 public:
  void* hostObjectAtPlace5() override { return nullptr; }
};
