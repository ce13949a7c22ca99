// The system's source reader, with a ReportingCallback before the program's callback, or behind a RefusingReader.
// Exports only what reads a camera.

#include <windows.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <string>

#include "standalone/virtual_camera/media_source/sample_marks.h"
#include "standalone/virtual_camera/source_reader/refusing_reader.h"
#include "standalone/virtual_camera/source_reader/reporting_callback.h"

using Microsoft::WRL::ComPtr;

namespace {

using CreateReader = decltype(&MFCreateSourceReaderFromMediaSource);

// By its full path: by its name alone this DLL would be found again. Never unloaded, since readers outlive the call.
CreateReader systemFunction() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
  const HMODULE library = LoadLibraryW((path + L"\\mfreadwrite.dll").c_str());
  if (!library) return nullptr;
  const auto function = reinterpret_cast<CreateReader>(
      reinterpret_cast<void*>(GetProcAddress(library, "MFCreateSourceReaderFromMediaSource")));
  return function == &MFCreateSourceReaderFromMediaSource ? nullptr : function;
}

// What a camera lets every call fail with that asks for a sample; S_OK for another source.
HRESULT refusalOf(IMFMediaSource* source) {
  ComPtr<IMFPresentationDescriptor> descriptor;
  UINT32 mark = S_OK;
  if (!source || FAILED(source->CreatePresentationDescriptor(&descriptor))) return S_OK;
  return SUCCEEDED(descriptor->GetUINT32(sample_marks::kReadRefused, &mark)) ? static_cast<HRESULT>(mark) : S_OK;
}

}  // namespace

HRESULT WINAPI MFCreateSourceReaderFromMediaSource(IMFMediaSource* source, IMFAttributes* attributes,
                                                   IMFSourceReader** reader) {
  static const CreateReader create = systemFunction();
  if (!create) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
  if (!reader) return E_POINTER;
  *reader = nullptr;
  ComPtr<IMFAttributes> reporting;
  HRESULT status = withReportingCallback(attributes, &reporting);
  if (FAILED(status)) return status;
  ComPtr<IMFSourceReader> made;
  status = create(source, reporting.Get(), &made);
  if (FAILED(status)) return status;
  const HRESULT refusal = refusalOf(source);
  *reader = FAILED(refusal) ? ComPtr<IMFSourceReader>(new RefusingReader(made.Get(), refusal)).Detach() : made.Detach();
  return S_OK;
}
