#pragma once

#include <mfobjects.h>

/// The contents of a media buffer, for as long as it is locked.
class BufferLock {
 public:
  explicit BufferLock(IMFMediaBuffer* mediaBuffer) : buffer(mediaBuffer) {
    if (FAILED(buffer->Lock(&bytes, nullptr, nullptr))) bytes = nullptr;
  }
  ~BufferLock() {
    if (bytes) buffer->Unlock();
  }
  BufferLock(const BufferLock&) = delete;
  BufferLock& operator=(const BufferLock&) = delete;

  /// Null when the buffer could not be locked.
  [[nodiscard]] const BYTE* data() const { return bytes; }

 private:
  IMFMediaBuffer* buffer;
  BYTE* bytes = nullptr;
};
