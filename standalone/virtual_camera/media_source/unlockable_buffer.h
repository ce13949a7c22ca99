#pragma once

#include <mferror.h>
#include <mfobjects.h>
#include <wrl/client.h>

#include <atomic>

#include "standalone/virtual_camera/media_source/com_object.h"

/// A media buffer that cannot be locked at the first attempt, as when a driver still writes it.
class UnlockableBuffer final : public ComObject<IMFMediaBuffer, IMFMediaBuffer> {
 public:
  explicit UnlockableBuffer(IMFMediaBuffer* mediaBuffer) : buffer(mediaBuffer) {}

  HRESULT STDMETHODCALLTYPE Lock(BYTE** bytes, DWORD* capacity, DWORD* length) override {
    if (!wasTried.exchange(true)) return MF_E_INVALIDREQUEST;
    return buffer->Lock(bytes, capacity, length);
  }
  HRESULT STDMETHODCALLTYPE Unlock() override { return buffer->Unlock(); }
  HRESULT STDMETHODCALLTYPE GetCurrentLength(DWORD* length) override { return buffer->GetCurrentLength(length); }
  HRESULT STDMETHODCALLTYPE SetCurrentLength(DWORD length) override { return buffer->SetCurrentLength(length); }
  HRESULT STDMETHODCALLTYPE GetMaxLength(DWORD* length) override { return buffer->GetMaxLength(length); }

 private:
  ~UnlockableBuffer() override = default;

  Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
  std::atomic<bool> wasTried = false;
};
