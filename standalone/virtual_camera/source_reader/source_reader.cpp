// The system's source reader, with a ReportingCallback before the program's callback. Exports only what reads a camera.

#include <windows.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <string>

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

}  // namespace

HRESULT WINAPI MFCreateSourceReaderFromMediaSource(IMFMediaSource* source, IMFAttributes* attributes,
                                                   IMFSourceReader** reader) {
  static const CreateReader create = systemFunction();
  if (!create) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
  ComPtr<IMFAttributes> reporting;
  const HRESULT status = withReportingCallback(attributes, &reporting);
  return FAILED(status) ? status : create(source, reporting.Get(), reader);
}
