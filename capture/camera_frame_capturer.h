#pragma once

#include <cstdint>

/// The capturer's own status numbers. The status can also hold a failed HRESULT taken from a media buffer.
using CaptureStatus = std::uint32_t;
inline constexpr CaptureStatus CaptureOk = 0;
inline constexpr CaptureStatus CaptureFailed = 1;
inline constexpr CaptureStatus CaptureDeviceRemoved = 38;
inline constexpr CaptureStatus CaptureTimedOut = 50;
inline constexpr CaptureStatus CaptureNoFrameYet = 113;
inline constexpr CaptureStatus CaptureCannotOpenDevice = 114;
inline constexpr CaptureStatus CaptureInitFailed = 115;
inline constexpr CaptureStatus CaptureNotRunning = 116;
inline constexpr CaptureStatus CaptureAlreadyRunning = 117;

/// The negotiated form of the frames: pixels of 4 bytes (blue, green, red, 0xFF), rows of `width` x 4 bytes.
struct FrameFormat {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  /// Whether the camera stores the rows from top to bottom.
  bool topDown = false;
};

/// Reads pictures from one camera. All operations are called on the test's thread.
class CameraFrameCapturer {
 public:
  CameraFrameCapturer() = default;
  virtual ~CameraFrameCapturer() = default;
  CameraFrameCapturer(const CameraFrameCapturer&) = delete;
  CameraFrameCapturer& operator=(const CameraFrameCapturer&) = delete;

  /// Opens the camera and returns when it is set up, or cannot be. CaptureOk, CaptureCannotOpenDevice,
  /// CaptureInitFailed or CaptureAlreadyRunning. `stop` must follow, whatever came back.
  [[nodiscard]] virtual CaptureStatus start() = 0;
  /// Waits for a frame, busily, until `timeoutMs` are just over. On CaptureOk `buffer` holds a copy that the caller
  /// frees with delete[]; otherwise it is untouched. The same frame may be returned again until the next one arrives.
  [[nodiscard]] virtual CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) = 0;
  /// Ends the capture and returns the status that was current; CaptureNotRunning when there is none.
  [[nodiscard]] virtual CaptureStatus stop() = 0;
  /// 0, or 1 while not running; then `format` is untouched.
  [[nodiscard]] virtual int getFrameFormat(FrameFormat& format) = 0;
};
