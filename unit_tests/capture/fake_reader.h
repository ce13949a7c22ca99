#pragma once

#include <windows.h>
#include <dbt.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/// What Media Foundation and the system answer to the capturer, and what it did to them. Every call that can fail asks
/// `faultPoint`.
struct ScriptedCapture {
  /// Of the type that the camera settles on; a stride, if it has any.
  GUID subtype = MFVideoFormat_RGB32;
  std::optional<std::int32_t> stride = 8;

  std::wstring openedLink;
  /// How often Media Foundation was started and not shut down.
  std::atomic<int> sessions{0};
  std::atomic<int> notifications{0};
  /// How many sources were made and not shut down, by the capturer or by their reader.
  std::atomic<int> sourcesOpen{0};
  std::atomic<int> reads{0};
  std::atomic<bool> readFailed{false};
  /// The capturer as the reader knows it; set while a reader lives.
  std::atomic<IMFSourceReaderCallback*> callback{nullptr};

  /// Called as the worker is asked to end.
  std::function<void()> onQuit;

  /// Puts a step of the clean-up on record.
  void note(const char* step);
  /// The steps so far, in order, each with a blank before it.
  std::string cleanUp() const;

 private:
  mutable std::mutex mutex;
  std::string steps;
};

ScriptedCapture& scriptedCapture();
void resetScriptedCapture();

/// A sample with these bytes in a buffer that is locked with the status of `lock`.
Microsoft::WRL::ComPtr<IMFSample> makeSample(
    const std::vector<std::uint8_t>& bytes, std::function<HRESULT()> lock = [] { return S_OK; });

/// Sends a device broadcast to the removal watcher's window.
void broadcast(WPARAM event, const wchar_t* device, DWORD type = DBT_DEVTYP_DEVICEINTERFACE);
