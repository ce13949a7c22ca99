#pragma once

// Steps that both camera tests take in the same way. All run on the test's thread.

#include <QImage>

#include <cstdint>
#include <memory>
#include <string>

#include "capture/camera_frame_capturer.h"
#include "module/test.h"

class CameraComponent;
class SystemComponent;
class TestExecutionContext;

namespace test_steps {

/// How long a test waits for one frame.
inline constexpr std::uint32_t kFrameTimeoutMs = 5000;

/// The component as a camera, or null when it is another kind of component.
CameraComponent* asCamera(SystemComponent* component);

/// Whether an event of the host ends a test: every value but 0 and 4.
bool isAbortEvent(std::uint8_t event);

/// Whether the context offers everything that a camera test uses.
bool hasServices(TestExecutionContext* context);

/// The low 8 bits of the current event.
std::uint8_t currentEvent(TestExecutionContext* context);

/// Reports a progress without a text.
void report(TestExecutionContext* context, int percent);

/// Reports 100 % with a key, then adds the same key to the messages.
void reportFinally(TestExecutionContext* context, const std::string& key);

/// The current tick of the host's timer.
std::uint32_t currentTick();

/// Maps a failed start of the capturer to its key, which it reports, and to the result. `status` is not CaptureOk.
TestResult reportFailedStart(TestExecutionContext* context, CaptureStatus status);

/// A deep copy of a frame as the capturer returned it; frees the frame.
QImage copyFrame(std::unique_ptr<std::uint8_t[]> frame, const FrameFormat& format);

}  // namespace test_steps
