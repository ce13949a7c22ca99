#include "capture/camera_reader.h"

#include <mfapi.h>
#include <mferror.h>

#include <new>

using Microsoft::WRL::ComPtr;

namespace {

constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
constexpr DWORD kAllStreams = static_cast<DWORD>(MF_SOURCE_READER_ALL_STREAMS);

// Device paths are ASCII; every byte becomes one wide character.
std::wstring widen(const std::string& text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (const char c : text) wide.push_back(static_cast<unsigned char>(c));
  return wide;
}

HRESULT createSource(const std::string& symbolicLink, ComPtr<IMFMediaSource>& source) try {
  const std::wstring link = widen(symbolicLink);
  ComPtr<IMFAttributes> attributes;
  HRESULT hr = MFCreateAttributes(&attributes, 2);
  if (FAILED(hr)) return hr;
  hr = attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
  if (FAILED(hr)) return hr;
  hr = attributes->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link.c_str());
  if (FAILED(hr)) return hr;
  return MFCreateDeviceSource(attributes.Get(), &source);
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

HRESULT createReader(IMFMediaSource* source, IMFSourceReaderCallback* callback, ComPtr<IMFSourceReader>& reader) {
  ComPtr<IMFAttributes> attributes;
  HRESULT hr = MFCreateAttributes(&attributes, 2);
  if (FAILED(hr)) return hr;
  hr = attributes->SetUINT32(MF_SOURCE_READER_ENABLE_VIDEO_PROCESSING, 1);
  if (FAILED(hr)) return hr;
  hr = attributes->SetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, callback);
  if (FAILED(hr)) return hr;
  return MFCreateSourceReaderFromMediaSource(source, attributes.Get(), &reader);
}

HRESULT selectRgb32Video(IMFSourceReader* reader) {
  ComPtr<IMFMediaType> type;
  HRESULT hr = MFCreateMediaType(&type);
  if (FAILED(hr)) return hr;
  hr = type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
  if (FAILED(hr)) return hr;
  hr = type->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_RGB32);
  if (FAILED(hr)) return hr;
  hr = reader->SetCurrentMediaType(kFirstVideoStream, nullptr, type.Get());
  if (FAILED(hr)) return hr;
  hr = reader->SetStreamSelection(kAllStreams, FALSE);
  if (FAILED(hr)) return hr;
  return reader->SetStreamSelection(kFirstVideoStream, TRUE);
}

HRESULT readFormat(IMFSourceReader* reader, FrameFormat& format) {
  ComPtr<IMFMediaType> type;
  HRESULT hr = reader->GetCurrentMediaType(kFirstVideoStream, &type);
  if (FAILED(hr)) return hr;

  GUID subtype = {};
  hr = type->GetGUID(MF_MT_SUBTYPE, &subtype);
  if (FAILED(hr)) return hr;
  if (subtype != MFVideoFormat_RGB32) return MF_E_INVALIDMEDIATYPE;

  UINT32 width = 0;
  UINT32 height = 0;
  hr = MFGetAttributeSize(type.Get(), MF_MT_FRAME_SIZE, &width, &height);
  if (FAILED(hr)) return hr;

  // A camera without a frame rate or with an odd aspect ratio: the first is refused, the second does not matter.
  UINT32 numerator = 0;
  UINT32 denominator = 0;
  hr = MFGetAttributeRatio(type.Get(), MF_MT_FRAME_RATE, &numerator, &denominator);
  if (FAILED(hr)) return hr;
  const auto stride = static_cast<INT32>(MFGetAttributeUINT32(type.Get(), MF_MT_DEFAULT_STRIDE, 1));
  static_cast<void>(MFGetAttributeRatio(type.Get(), MF_MT_PIXEL_ASPECT_RATIO, &numerator, &denominator));

  format = {width, height, stride > 0};
  return S_OK;
}

}  // namespace

CaptureStatus openCameraReader(const std::string& symbolicLink, IMFSourceReaderCallback* callback,
                               CameraReader& opened) {
  ComPtr<IMFMediaSource> source;
  if (FAILED(createSource(symbolicLink, source))) return CaptureCannotOpenDevice;

  if (FAILED(createReader(source.Get(), callback, opened.reader))) {
    // Without a reader nobody else shuts the source down, and the camera would stay occupied.
    source->Shutdown();
    return CaptureInitFailed;
  }
  if (FAILED(selectRgb32Video(opened.reader.Get()))) return CaptureInitFailed;
  if (FAILED(readFormat(opened.reader.Get(), opened.format))) return CaptureInitFailed;
  return CaptureOk;
}
