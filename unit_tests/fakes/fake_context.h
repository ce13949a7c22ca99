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
#include "unit_tests/fakes/fault_rounds.h"

/// A host that writes down what a test tells it, each with a blank before it: a message's key, or a progress's
/// percentage and, behind a colon, its text, or a request's second text behind a question mark. Answers requests as the
/// test case says, and has the faults that `faultPoint` wants.
class FakeContext : public TestExecutionContext, public MessageList, public ProgressReporter, public EventSource {
 public:
  SystemComponent* getComponent() override {
    ++componentQueries;
    return called("getComponent", component, Fault::kNull);
  }
  MessageList* getMessageList() override {
    return called("getMessageList", withMessageList ? this : nullptr, Fault::kNull);
  }
  ProgressReporter* getProgressReporter() override {
    return called("getProgressReporter", withReporter ? this : nullptr, Fault::kNull);
  }
  EventSource* getEventSource() override {
    return called("getEventSource", withEventSource ? this : nullptr, Fault::kNull);
  }
  bool isCancelled() override { return called("isCancelled", cancelled.load(), Fault::kCancelled, true); }

  void add(std::string key, std::uint64_t first, std::uint64_t second) override {
    EXPECT_TRUE(first == 0 && second == 0);
    told += called("add", ' ' + key);
  }
  void report(int percent, const std::string& text) override {
    told += called("report", ' ' + std::to_string(percent) + (text.empty() ? "" : ':' + text));
  }
  bool isReady() override { return called("isReady", ready); }
  std::uint32_t getEvent() override { return called("getEvent", event, Fault::kEvent, 1u); }
  void submit(InputRequest* request) override {
    told += called("submit", " ?" + request->secondText);
    const bool shows = !request->widget || called("submit", true, Fault::kNoDialog);
    if (onSubmit && shows) onSubmit(*request);
    called("submit", 0);
  }

  SystemComponent* component = nullptr;
  bool withMessageList = true;
  bool withReporter = true;
  bool withEventSource = true;
  bool ready = true;
  /// May be set on any thread.
  std::atomic<bool> cancelled = false;
  std::uint32_t event = 0;
  /// Called by every operation of the host, twice or more while it shows a request.
  std::function<void()> onCall;
  std::function<void(InputRequest&)> onSubmit;
  int componentQueries = 0;
  std::string told;

 private:
  template <class Value>
  Value called(const char* name, Value value, Fault kind = Fault::kNone, Value faulty = {}) {
    if (onCall) onCall();
    return faultPoint.answer(name, value, kind, faulty);
  }
};

/// A capturer that delivers one frame again and again, and writes down among what the host is told when it starts and
/// stops.
class FakeCapturer : public CameraFrameCapturer {
 public:
  explicit FakeCapturer(std::string& list) : told(list) {}

  CaptureStatus start() override {
    ++started;
    tell(" (started)");
    return faultPoint.answer("start", startStatus, Fault::kStatus, CaptureCannotOpenDevice);
  }
  CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) override {
    EXPECT_EQ(timeoutMs, 5000u);
    ++framesTaken;
    const CaptureStatus status =
        faultPoint.answer("getFrame", onFrame ? onFrame() : CaptureOk, Fault::kStatus, CaptureFailed);
    if (status != CaptureOk) return status;
    const auto size = static_cast<std::size_t>(frame.sizeInBytes());
    buffer = new std::uint8_t[size];
    std::memcpy(buffer, frame.constBits(), size);
    return CaptureOk;
  }
  CaptureStatus stop() override {
    --started;
    tell(" (stopped)");
    return faultPoint.answer("stop", CaptureOk, Fault::kStatus, CaptureFailed);
  }
  int getFrameFormat(FrameFormat& format) override {
    if (!faultPoint.answer("getFrameFormat", hasFormat, Fault::kStatus, false)) return 1;
    format = {static_cast<std::uint32_t>(frame.width()), static_cast<std::uint32_t>(frame.height()), true};
    return 0;
  }

  CaptureStatus startStatus = CaptureOk;
  bool hasFormat = true;
  QImage frame{4, 2, QImage::Format_RGB32};
  int framesTaken = 0;
  /// How often it was started and not stopped.
  int started = 0;
  /// Called for every frame that is asked for; a status other than CaptureOk is what the wait ends with.
  std::function<CaptureStatus()> onFrame;

 private:
  void tell(const char* what) {
    const FaultPause pause;
    told += what;
  }
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
