#include "standalone/virtual_camera/source_reader/reporting_callback.h"

#include <mfapi.h>

#include "standalone/virtual_camera/media_source/sample_marks.h"

using Microsoft::WRL::ComPtr;

HRESULT ReportingCallback::OnReadSample(HRESULT status, DWORD stream, DWORD flags, LONGLONG time, IMFSample* sample) {
  UINT32 mark = 0;
  if (sample && SUCCEEDED(sample->GetUINT32(sample_marks::kReadFails, &mark))) {
    return callback->OnReadSample(static_cast<HRESULT>(mark), stream, flags | MF_SOURCE_READERF_ERROR, time, nullptr);
  }
  if (sample && SUCCEEDED(sample->GetUINT32(sample_marks::kMediaTypeChanged, &mark))) {
    flags |= MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED;
  }
  return callback->OnReadSample(status, stream, flags, time, sample);
}

HRESULT withReportingCallback(IMFAttributes* attributes, IMFAttributes** result) {
  ComPtr<IMFSourceReaderCallback> program;
  if (!attributes || FAILED(attributes->GetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, IID_PPV_ARGS(&program)))) {
    return ComPtr<IMFAttributes>(attributes).CopyTo(result);
  }
  ComPtr<IMFAttributes> copy;
  HRESULT status = MFCreateAttributes(&copy, 4);
  if (FAILED(status)) return status;
  status = attributes->CopyAllItems(copy.Get());
  if (FAILED(status)) return status;
  const ComPtr<ReportingCallback> reporting(new ReportingCallback(program.Get()));
  status = copy->SetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, reporting.Get());
  if (FAILED(status)) return status;
  *result = copy.Detach();
  return S_OK;
}
