#include "benchmarks/bare_reader.h"

#include <mfapi.h>

#include <mutex>
#include <stdexcept>
#include <utility>

#include "standalone/virtual_camera/media_source/com_object.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
constexpr DWORD kAllStreams = static_cast<DWORD>(MF_SOURCE_READER_ALL_STREAMS);

void check(HRESULT status) {
  if (FAILED(status)) throw std::runtime_error("Media Foundation does not open the camera");
}

}  // namespace

class BareReader::Callback final : public ComObject<IMFSourceReaderCallback, IMFSourceReaderCallback> {
 public:
  explicit Callback(OnFrame frameCallback) : onFrame(std::move(frameCallback)) {}

  /// Null: reads no more.
  HRESULT readWith(IMFSourceReader* sourceReader) {
    const std::lock_guard lock(mutex);
    reader = sourceReader;
    return readNext();
  }
  HRESULT STDMETHODCALLTYPE OnReadSample(HRESULT, DWORD, DWORD, LONGLONG, IMFSample* sample) override {
    const std::lock_guard lock(mutex);
    if (reader && sample) onFrame(*sample);
    readNext();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnFlush(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEvent(DWORD, IMFMediaEvent*) override { return S_OK; }

 private:
  ~Callback() override = default;

  HRESULT readNext() {
    return reader ? reader->ReadSample(kFirstVideoStream, 0, nullptr, nullptr, nullptr, nullptr) : S_OK;
  }

  const OnFrame onFrame;
  std::mutex mutex;
  /// Not owned.
  IMFSourceReader* reader = nullptr;
};

BareReader::BareReader(const std::string& devicePath, OnFrame onFrame) : callback(new Callback(std::move(onFrame))) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  MFStartup(MF_VERSION, MFSTARTUP_FULL);
  try {
    open(devicePath);
  } catch (...) {
    close();
    throw;
  }
}

BareReader::~BareReader() {
  close();
}

void BareReader::read() {
  callback->readWith(reader.Get());
}

void BareReader::open(const std::string& devicePath) {
  ComPtr<IMFAttributes> attributes;
  check(MFCreateAttributes(&attributes, 2));
  check(attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID));
  check(attributes->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK,
                              std::wstring(devicePath.begin(), devicePath.end()).c_str()));
  ComPtr<IMFMediaSource> source;
  check(MFCreateDeviceSource(attributes.Get(), &source));

  ComPtr<IMFAttributes> options;
  check(MFCreateAttributes(&options, 2));
  check(options->SetUINT32(MF_SOURCE_READER_ENABLE_VIDEO_PROCESSING, 1));
  check(options->SetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, callback.Get()));
  check(MFCreateSourceReaderFromMediaSource(source.Get(), options.Get(), &reader));

  ComPtr<IMFMediaType> type;
  check(MFCreateMediaType(&type));
  check(type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video));
  check(type->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_RGB32));
  check(reader->SetCurrentMediaType(kFirstVideoStream, nullptr, type.Get()));
  check(reader->SetStreamSelection(kAllStreams, FALSE));
  check(reader->SetStreamSelection(kFirstVideoStream, TRUE));
}

void BareReader::close() {
  callback->readWith(nullptr);
  reader.Reset();
  callback.Reset();
  MFShutdown();
  CoUninitialize();
}
