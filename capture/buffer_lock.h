#pragma once

#include <mfobjects.h>

/// The contents of a media buffer, for as long as it is locked.
class BufferLock {
 public:
  explicit BufferLock(IMFMediaBuffer* mediaBuffer)
      : buffer(mediaBuffer), locked(SUCCEEDED(buffer->Lock(&bytes, nullptr, nullptr))) {}
  ~BufferLock() {
    if (locked) buffer->Unlock();
  }
  BufferLock(const BufferLock&) = delete;
  BufferLock& operator=(const BufferLock&) = delete;

  /// Null when the buffer could not be locked.
  [[nodiscard]] const BYTE* data() const { return locked ? bytes : nullptr; }

 private:
  IMFMediaBuffer* buffer;
  BYTE* bytes = nullptr;
  bool locked;
};
