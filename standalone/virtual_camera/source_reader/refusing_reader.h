#pragma once

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include "standalone/virtual_camera/media_source/com_object.h"

/// A source reader of which every call that asks for a sample fails at once, without a callback. All else is done by
/// the reader behind it.
class RefusingReader final : public ComObject<IMFSourceReader, IMFSourceReader> {
 public:
  RefusingReader(IMFSourceReader* sourceReader, HRESULT readStatus) : reader(sourceReader), refusal(readStatus) {}

  HRESULT STDMETHODCALLTYPE GetStreamSelection(DWORD stream, WINBOOL* selected) override {
    return reader->GetStreamSelection(stream, selected);
  }
  HRESULT STDMETHODCALLTYPE SetStreamSelection(DWORD stream, WINBOOL selected) override {
    return reader->SetStreamSelection(stream, selected);
  }
  HRESULT STDMETHODCALLTYPE GetNativeMediaType(DWORD stream, DWORD number, IMFMediaType** type) override {
    return reader->GetNativeMediaType(stream, number, type);
  }
  HRESULT STDMETHODCALLTYPE GetCurrentMediaType(DWORD stream, IMFMediaType** type) override {
    return reader->GetCurrentMediaType(stream, type);
  }
  HRESULT STDMETHODCALLTYPE SetCurrentMediaType(DWORD stream, DWORD* reserved, IMFMediaType* type) override {
    return reader->SetCurrentMediaType(stream, reserved, type);
  }
  HRESULT STDMETHODCALLTYPE SetCurrentPosition(REFGUID format, REFPROPVARIANT position) override {
    return reader->SetCurrentPosition(format, position);
  }
  HRESULT STDMETHODCALLTYPE ReadSample(DWORD, DWORD, DWORD*, DWORD*, LONGLONG*, IMFSample**) override {
    return refusal;
  }
  HRESULT STDMETHODCALLTYPE Flush(DWORD stream) override { return reader->Flush(stream); }
  HRESULT STDMETHODCALLTYPE GetServiceForStream(DWORD stream, REFGUID service, REFIID iid, void** object) override {
    return reader->GetServiceForStream(stream, service, iid, object);
  }
  HRESULT STDMETHODCALLTYPE GetPresentationAttribute(DWORD stream, REFGUID key, PROPVARIANT* value) override {
    return reader->GetPresentationAttribute(stream, key, value);
  }

 private:
  ~RefusingReader() override = default;

  Microsoft::WRL::ComPtr<IMFSourceReader> reader;
  const HRESULT refusal;
};
