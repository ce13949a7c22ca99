#pragma once

#include <windows.h>
#include <dbt.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <QSemaphore>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// What Media Foundation and the system answer to the capturer, and what it did to them.
struct ScriptedCapture {
  /// Names of the calls that fail, as in "MFCreateDeviceSource" or "SetStreamSelection 2" (the second of a
  /// run), and of what is wrong with the type that the camera settles on: "subtype", "frame size" or "frame rate".
  std::set<std::string> failing;
  /// Of the type that the camera settles on, if it has any.
  std::optional<std::int32_t> stride = 8;

  std::wstring openedLink;
  std::atomic<int> startUps{0};
  std::atomic<int> shutDowns{0};
  std::atomic<int> notifications{0};
  std::atomic<int> sourceShutdowns{0};
  std::atomic<int> reads{0};
  /// The capturer as the reader knows it; set while a reader lives.
  std::atomic<IMFSourceReaderCallback*> callback{nullptr};

  /// Puts a step of the clean-up on record.
  void note(const std::string& step);
  /// The steps so far, in order, each with a blank before it.
  std::string cleanUp() const;

 private:
  mutable std::mutex mutex;
  std::string steps;
};

ScriptedCapture& scriptedCapture();
void resetScriptedCapture();

/// A sample with these bytes.
Microsoft::WRL::ComPtr<IMFSample> makeSample(const std::vector<std::uint8_t>& bytes);

/// A sample whose buffer is locked when the gate lets it: `reached` is released as the callback comes to it, and the
/// callback goes on when `open` is.
struct Gate {
  QSemaphore reached;
  QSemaphore open;
};
Microsoft::WRL::ComPtr<IMFSample> makeGatedSample(Gate& gate);

/// Which call on a sample's buffer fails.
enum class BufferFault { kGetBuffer, kGetLength, kLock };
Microsoft::WRL::ComPtr<IMFSample> makeFaultySample(BufferFault fault);

/// Sends a device broadcast to the removal watcher's window.
void broadcast(WPARAM event, const std::wstring& name, DWORD type = DBT_DEVTYP_DEVICEINTERFACE);
