#pragma once

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <functional>
#include <string>

/// An asynchronous source reader of a camera's RGB32 frames and nothing else, with COM and Media Foundation for as long
/// as it is open. Made and destroyed on the same thread.
class BareReader {
 public:
  /// Called on a thread of Media Foundation with each frame.
  using OnFrame = std::function<void(IMFSample& sample)>;

  /// Opens the camera. Throws std::runtime_error.
  BareReader(const std::string& devicePath, OnFrame onFrame);
  ~BareReader();
  BareReader(const BareReader&) = delete;
  BareReader& operator=(const BareReader&) = delete;

  /// Asks for the first frame; each frame then for the next.
  void read();

 private:
  class Callback;

  void open(const std::string& devicePath);
  void close();

  Microsoft::WRL::ComPtr<Callback> callback;
  Microsoft::WRL::ComPtr<IMFSourceReader> reader;
};
