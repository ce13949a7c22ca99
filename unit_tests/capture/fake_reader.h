#pragma once

#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <atomic>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

/// What Media Foundation and the system answer to the capturer, and what it did to them.
struct ScriptedCapture {
  /// Names of the calls that fail, as in "MFCreateDeviceSource" or "SetStreamSelection 2" (the second of a run).
  std::set<std::string> failing;
  /// The type that the camera settles on.
  GUID subtype = MFVideoFormat_RGB32;
  bool hasFrameSize = true;
  bool hasFrameRate = true;
  bool hasStride = true;
  std::int32_t stride = 8;
  std::uint32_t width = 2;
  std::uint32_t height = 1;

  std::wstring openedLink;
  std::atomic<int> startUps{0};
  std::atomic<int> shutDowns{0};
  std::atomic<int> notifications{0};
  std::atomic<int> sourceShutdowns{0};
  std::atomic<int> reads{0};
  /// The capturer as the reader knows it; set while a reader lives.
  std::atomic<IMFSourceReaderCallback*> callback{nullptr};
  /// The steps of the clean-up, in order.
  std::vector<std::string> cleanUp;
};

ScriptedCapture& scriptedCapture();
void resetScriptedCapture();

/// A sample with these bytes, in a real memory buffer.
Microsoft::WRL::ComPtr<IMFSample> makeSample(const std::vector<std::uint8_t>& bytes);

/// Which call on a sample's buffer fails.
enum class BufferFault { kGetBuffer, kGetLength, kLock };
Microsoft::WRL::ComPtr<IMFSample> makeFaultySample(BufferFault fault);
