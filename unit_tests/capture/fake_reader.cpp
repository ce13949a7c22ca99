#include "unit_tests/capture/fake_reader.h"

#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "unit_tests/fakes/com_object.h"

using Microsoft::WRL::ComPtr;

namespace {

std::unique_ptr<ScriptedCapture>& state() {
  static auto script = std::make_unique<ScriptedCapture>();
  return script;
}

bool fails(const std::string& call) {
  return scriptedCapture().failing.count(call) != 0;
}
HRESULT answer(const std::string& call) {
  return fails(call) ? E_FAIL : S_OK;
}

class FakeSource : public ComObject<IMFMediaSource> {
 public:
  STDMETHODIMP GetEvent(DWORD, IMFMediaEvent**) override { return E_NOTIMPL; }
  STDMETHODIMP BeginGetEvent(IMFAsyncCallback*, IUnknown*) override { return E_NOTIMPL; }
  STDMETHODIMP EndGetEvent(IMFAsyncResult*, IMFMediaEvent**) override { return E_NOTIMPL; }
  STDMETHODIMP QueueEvent(MediaEventType, REFGUID, HRESULT, const PROPVARIANT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetCharacteristics(DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP CreatePresentationDescriptor(IMFPresentationDescriptor**) override { return E_NOTIMPL; }
  STDMETHODIMP Start(IMFPresentationDescriptor*, const GUID*, const PROPVARIANT*) override { return E_NOTIMPL; }
  STDMETHODIMP Stop() override { return E_NOTIMPL; }
  STDMETHODIMP Pause() override { return E_NOTIMPL; }
  STDMETHODIMP Shutdown() override {
    ++scriptedCapture().sourceShutdowns;
    return S_OK;
  }
};

class FakeReader : public ComObject<IMFSourceReader> {
 public:
  explicit FakeReader(IMFSourceReaderCallback* readerCallback) : callback(readerCallback) {
    scriptedCapture().callback = readerCallback;
  }
  ~FakeReader() override {
    scriptedCapture().callback = nullptr;
    scriptedCapture().cleanUp.push_back("reader");
  }

  STDMETHODIMP GetStreamSelection(DWORD, BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP SetStreamSelection(DWORD stream, BOOL selected) override {
    const bool expected = ++selections == 1 ? stream == static_cast<DWORD>(MF_SOURCE_READER_ALL_STREAMS) && !selected
                                            : stream == kFirstVideoStream && selected;
    return expected ? answer("SetStreamSelection " + std::to_string(selections)) : E_INVALIDARG;
  }
  STDMETHODIMP GetNativeMediaType(DWORD, DWORD, IMFMediaType**) override { return E_NOTIMPL; }
  STDMETHODIMP GetCurrentMediaType(DWORD, IMFMediaType** type) override {
    if (fails("GetCurrentMediaType")) return E_FAIL;
    const ScriptedCapture& script = scriptedCapture();
    ComPtr<IMFMediaType> made;
    MFCreateMediaType(&made);
    made->SetGUID(MF_MT_SUBTYPE, script.subtype);
    if (script.hasFrameSize) MFSetAttributeSize(made.Get(), MF_MT_FRAME_SIZE, script.width, script.height);
    if (script.hasFrameRate) MFSetAttributeRatio(made.Get(), MF_MT_FRAME_RATE, 30, 1);
    if (script.hasStride) made->SetUINT32(MF_MT_DEFAULT_STRIDE, static_cast<UINT32>(script.stride));
    *type = made.Detach();
    return S_OK;
  }
  STDMETHODIMP SetCurrentMediaType(DWORD stream, DWORD*, IMFMediaType* type) override {
    GUID major = {};
    GUID subtype = {};
    type->GetGUID(MF_MT_MAJOR_TYPE, &major);
    type->GetGUID(MF_MT_SUBTYPE, &subtype);
    if (stream != kFirstVideoStream || major != MFMediaType_Video || subtype != MFVideoFormat_RGB32)
      return E_INVALIDARG;
    return answer("SetCurrentMediaType");
  }
  STDMETHODIMP SetCurrentPosition(REFGUID, REFPROPVARIANT) override { return E_NOTIMPL; }
  STDMETHODIMP ReadSample(DWORD, DWORD, DWORD*, DWORD*, LONGLONG*, IMFSample**) override {
    const int number = ++scriptedCapture().reads;
    return answer("ReadSample " + std::to_string(number));
  }
  STDMETHODIMP Flush(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetServiceForStream(DWORD, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP GetPresentationAttribute(DWORD, REFGUID, PROPVARIANT*) override { return E_NOTIMPL; }

 private:
  static constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
  ComPtr<IMFSourceReaderCallback> callback;
  int selections = 0;
};

class FaultyBuffer : public ComObject<IMFMediaBuffer> {
 public:
  explicit FaultyBuffer(BufferFault bufferFault) : fault(bufferFault) {}
  STDMETHODIMP Lock(BYTE**, DWORD*, DWORD*) override { return E_FAIL; }
  STDMETHODIMP Unlock() override {
    ADD_FAILURE() << "unlocked what was not locked";
    return E_FAIL;
  }
  STDMETHODIMP GetCurrentLength(DWORD* length) override {
    *length = 8;
    return fault == BufferFault::kGetLength ? MF_E_INVALIDREQUEST : S_OK;
  }
  STDMETHODIMP SetCurrentLength(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetMaxLength(DWORD*) override { return E_NOTIMPL; }

 private:
  BufferFault fault;
};

// The system's own function behind one that is replaced here.
template <class Function>
Function userFunction(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

HDEVNOTIFY WINAPI registerNotification(HANDLE window, void* filter, DWORD flags) {
  if (fails("RegisterDeviceNotification") || !window || flags != DEVICE_NOTIFY_ALL_INTERFACE_CLASSES) return nullptr;
  static const auto real = userFunction<decltype(&RegisterDeviceNotificationW)>("RegisterDeviceNotificationW");
  const HDEVNOTIFY notification = real(window, filter, flags);
  if (notification) ++scriptedCapture().notifications;
  return notification;
}

BOOL WINAPI unregisterNotification(HDEVNOTIFY notification) {
  scriptedCapture().cleanUp.push_back("notification");
  if (!notification) return FALSE;
  --scriptedCapture().notifications;
  static const auto real = userFunction<decltype(&UnregisterDeviceNotification)>("UnregisterDeviceNotification");
  return real(notification);
}

}  // namespace

// Imported functions are replaced through their pointers, Media Foundation's by name.
extern "C" {
extern const void* const __imp_RegisterDeviceNotificationW;
extern const void* const __imp_UnregisterDeviceNotification;
const void* const __imp_RegisterDeviceNotificationW = reinterpret_cast<const void*>(&registerNotification);
const void* const __imp_UnregisterDeviceNotification = reinterpret_cast<const void*>(&unregisterNotification);

HRESULT WINAPI MFStartup(ULONG version, DWORD flags) {
  if (version != 0x20070 || flags != MFSTARTUP_FULL) return E_INVALIDARG;
  ++scriptedCapture().startUps;
  return S_OK;
}

HRESULT WINAPI MFShutdown() {
  ++scriptedCapture().shutDowns;
  scriptedCapture().cleanUp.push_back("media foundation");
  return S_OK;
}

HRESULT WINAPI MFCreateDeviceSource(IMFAttributes* attributes, IMFMediaSource** source) {
  if (fails("MFCreateDeviceSource")) return MF_E_ATTRIBUTENOTFOUND;
  GUID kind = {};
  attributes->GetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, &kind);
  if (kind != MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID) return E_INVALIDARG;
  WCHAR link[256] = L"";
  attributes->GetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link, 256, nullptr);
  scriptedCapture().openedLink = link;
  *source = new FakeSource;
  return S_OK;
}

HRESULT WINAPI MFCreateSourceReaderFromMediaSource(IMFMediaSource*, IMFAttributes* attributes,
                                                   IMFSourceReader** reader) {
  if (fails("MFCreateSourceReaderFromMediaSource")) return E_FAIL;
  if (MFGetAttributeUINT32(attributes, MF_SOURCE_READER_ENABLE_VIDEO_PROCESSING, 0) != 1) return E_INVALIDARG;
  ComPtr<IMFSourceReaderCallback> callback;
  const HRESULT hr = attributes->GetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, IID_PPV_ARGS(&callback));
  if (FAILED(hr)) return hr;
  *reader = new FakeReader(callback.Get());
  return S_OK;
}
}

ScriptedCapture& scriptedCapture() {
  return *state();
}

void resetScriptedCapture() {
  state() = std::make_unique<ScriptedCapture>();
}

ComPtr<IMFSample> makeSample(const std::vector<std::uint8_t>& bytes) {
  ComPtr<IMFMediaBuffer> buffer;
  MFCreateMemoryBuffer(static_cast<DWORD>(bytes.size()), &buffer);
  BYTE* data = nullptr;
  buffer->Lock(&data, nullptr, nullptr);
  std::copy(bytes.begin(), bytes.end(), data);
  buffer->Unlock();
  buffer->SetCurrentLength(static_cast<DWORD>(bytes.size()));
  ComPtr<IMFSample> sample;
  MFCreateSample(&sample);
  sample->AddBuffer(buffer.Get());
  return sample;
}

ComPtr<IMFSample> makeFaultySample(BufferFault fault) {
  ComPtr<IMFSample> sample;
  MFCreateSample(&sample);
  if (fault == BufferFault::kGetBuffer) return sample;  // without a buffer
  ComPtr<IMFMediaBuffer> buffer;
  // mingw's ComPtr::Attach takes a reference of its own.
  *buffer.GetAddressOf() = new FaultyBuffer(fault);
  sample->AddBuffer(buffer.Get());
  return sample;
}
