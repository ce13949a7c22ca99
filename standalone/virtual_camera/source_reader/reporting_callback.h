#pragma once

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include "standalone/virtual_camera/media_source/com_object.h"

/// Stands between a source reader and a program's callback and reports what a camera's marked samples say and Wine's
/// reader cannot: failing reads, and a changed media type. Samples without a mark pass as they are, whatever source
/// they come from.
class ReportingCallback final : public ComObject<IMFSourceReaderCallback, IMFSourceReaderCallback> {
 public:
  explicit ReportingCallback(IMFSourceReaderCallback* program) : callback(program) {}

  HRESULT STDMETHODCALLTYPE OnReadSample(HRESULT status, DWORD stream, DWORD flags, LONGLONG time,
                                         IMFSample* sample) override;
  HRESULT STDMETHODCALLTYPE OnFlush(DWORD stream) override { return callback->OnFlush(stream); }
  HRESULT STDMETHODCALLTYPE OnEvent(DWORD stream, IMFMediaEvent* event) override {
    return callback->OnEvent(stream, event);
  }

 private:
  ~ReportingCallback() override = default;

  Microsoft::WRL::ComPtr<IMFSourceReaderCallback> callback;
};

/// A copy of a source reader's attributes in which a ReportingCallback stands before the program's callback. Attributes
/// without a callback, and null, come back as they are.
HRESULT withReportingCallback(IMFAttributes* attributes, IMFAttributes** result);
