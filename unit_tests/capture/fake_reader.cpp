#include "unit_tests/capture/fake_reader.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/media_source/attribute_store.h"
#include "standalone/virtual_camera/media_source/event_generator.h"
#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fault_rounds.h"
#include "unit_tests/fakes/substitute_import.h"

using Microsoft::WRL::ComPtr;

namespace {

std::unique_ptr<ScriptedCapture> script = std::make_unique<ScriptedCapture>();

bool fails(const char* call) {
  return faultPoint.fails(Fault::kSystem, call);
}
HRESULT answer(const char* call) {
  return fails(call) ? E_FAIL : S_OK;
}

/// An operation of an attribute store that may fail.
#define MAY_FAIL(operation, name, parameters, ...)               \
  STDMETHODIMP operation parameters override {                   \
    return fails(name) ? E_FAIL : Store::operation(__VA_ARGS__); \
  }

/// What the capturer writes may fail.
template <class Interface>
struct FakeAttributes : public FakeComObject<AttributeStore<Interface>, Interface> {
  using Store = AttributeStore<Interface>;
  MAY_FAIL(SetGUID, "SetGUID", (REFGUID key, REFGUID value), key, value)
  MAY_FAIL(SetString, "SetString", (REFGUID key, LPCWSTR text), key, text)
  MAY_FAIL(SetUINT32, "SetUINT32", (REFGUID key, UINT32 value), key, value)
  MAY_FAIL(SetUnknown, "SetUnknown", (REFGUID key, IUnknown* object), key, object)
};

/// And what it reads.
struct FakeMediaType : public FakeAttributes<IMFMediaType> {
  MAY_FAIL(GetGUID, "GetGUID", (REFGUID key, GUID* value), key, value)
  MAY_FAIL(GetUINT32, "stride", (REFGUID key, UINT32* value), key, value)
  MAY_FAIL(GetUINT64, key == MF_MT_PIXEL_ASPECT_RATIO ? "pixel aspect ratio" : "GetUINT64",
           (REFGUID key, UINT64* value), key, value)
  STDMETHODIMP GetMajorType(GUID*) override { return E_NOTIMPL; }
  STDMETHODIMP IsCompressedFormat(BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP IsEqual(IMFMediaType*, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetRepresentation(GUID, LPVOID*) override { return E_NOTIMPL; }
  STDMETHODIMP FreeRepresentation(GUID, LPVOID) override { return E_NOTIMPL; }
};

class FakeSource : public FakeComObject<EventGenerator<IMFMediaSource>, IMFMediaSource> {
 public:
  FakeSource() { ++scriptedCapture().sourcesOpen; }
  STDMETHODIMP GetCharacteristics(DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP CreatePresentationDescriptor(IMFPresentationDescriptor**) override { return E_NOTIMPL; }
  STDMETHODIMP Start(IMFPresentationDescriptor*, const GUID*, const PROPVARIANT*) override { return E_NOTIMPL; }
  STDMETHODIMP Stop() override { return E_NOTIMPL; }
  STDMETHODIMP Pause() override { return E_NOTIMPL; }
  STDMETHODIMP Shutdown() override {
    --scriptedCapture().sourcesOpen;
    return S_OK;
  }
};

class FakeReader : public FakeComObject<IMFSourceReader> {
 public:
  FakeReader(IMFMediaSource* readSource, IMFSourceReaderCallback* readerCallback)
      : source(readSource), callback(readerCallback) {
    scriptedCapture().callback = readerCallback;
  }
  ~FakeReader() override {
    source->Shutdown();
    scriptedCapture().callback = nullptr;
    scriptedCapture().note("reader");
  }

  STDMETHODIMP GetStreamSelection(DWORD, BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP SetStreamSelection(DWORD stream, BOOL selected) override {
    const bool expected = ++selections == 1 ? stream == static_cast<DWORD>(MF_SOURCE_READER_ALL_STREAMS) && !selected
                                            : stream == kFirstVideoStream && selected;
    return expected ? answer("SetStreamSelection") : E_INVALIDARG;
  }
  STDMETHODIMP GetNativeMediaType(DWORD, DWORD, IMFMediaType**) override { return E_NOTIMPL; }
  STDMETHODIMP GetCurrentMediaType(DWORD stream, IMFMediaType** type) override {
    if (fails("GetCurrentMediaType") || stream != kFirstVideoStream) return E_FAIL;
    const FaultPause pause;
    ComPtr<FakeMediaType> made(new FakeMediaType);
    made->Store::SetGUID(MF_MT_SUBTYPE, script->subtype);
    MFSetAttributeSize(made.Get(), MF_MT_FRAME_SIZE, 2, 1);
    MFSetAttributeRatio(made.Get(), MF_MT_FRAME_RATE, 30, 1);
    if (script->stride) made->Store::SetUINT32(MF_MT_DEFAULT_STRIDE, static_cast<UINT32>(*script->stride));
    *type = made.Detach();
    return S_OK;
  }
  STDMETHODIMP SetCurrentMediaType(DWORD stream, DWORD* reserved, IMFMediaType* type) override {
    GUID major = {};
    GUID subtype = {};
    auto* const wanted = static_cast<FakeMediaType*>(type);
    wanted->Store::GetGUID(MF_MT_MAJOR_TYPE, &major);
    wanted->Store::GetGUID(MF_MT_SUBTYPE, &subtype);
    const bool expected =
        stream == kFirstVideoStream && !reserved && major == MFMediaType_Video && subtype == MFVideoFormat_RGB32;
    return expected ? answer("SetCurrentMediaType") : E_INVALIDARG;
  }
  STDMETHODIMP SetCurrentPosition(REFGUID, REFPROPVARIANT) override { return E_NOTIMPL; }
  STDMETHODIMP ReadSample(DWORD stream, DWORD flags, DWORD* index, DWORD* streamFlags, LONGLONG* time,
                          IMFSample** sample) override {
    // Asynchronous reads take no places for their results.
    const bool expected = stream == kFirstVideoStream && flags == 0 && !index && !streamFlags && !time && !sample;
    const HRESULT hr = answer("ReadSample");
    if (FAILED(hr)) scriptedCapture().readFailed = true;
    // Last: a test that waits for the read then changes the script.
    ++scriptedCapture().reads;
    return expected ? hr : E_INVALIDARG;
  }
  STDMETHODIMP Flush(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetServiceForStream(DWORD, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP GetPresentationAttribute(DWORD, REFGUID, PROPVARIANT*) override { return E_NOTIMPL; }

 private:
  static constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
  ComPtr<IMFMediaSource> source;
  ComPtr<IMFSourceReaderCallback> callback;
  int selections = 0;
};

class FakeBuffer : public FakeComObject<IMFMediaBuffer> {
 public:
  FakeBuffer(const std::vector<std::uint8_t>& content, std::function<HRESULT()> lock)
      : bytes(content), locking(std::move(lock)) {}
  STDMETHODIMP Lock(BYTE** data, DWORD*, DWORD*) override {
    *data = bytes.data();
    const HRESULT hr = fails("Lock") ? E_FAIL : locking();
    locked = SUCCEEDED(hr);
    return hr;
  }
  STDMETHODIMP Unlock() override {
    EXPECT_TRUE(std::exchange(locked, false)) << "unlocked what was not locked";
    return S_OK;
  }
  STDMETHODIMP GetCurrentLength(DWORD* length) override {
    *length = static_cast<DWORD>(bytes.size());
    return answer("GetCurrentLength");
  }
  STDMETHODIMP SetCurrentLength(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetMaxLength(DWORD*) override { return E_NOTIMPL; }

 private:
  std::vector<std::uint8_t> bytes;
  std::function<HRESULT()> locking;
  bool locked = false;
};

}  // namespace

SUBSTITUTE_IMPORT(HDEVNOTIFY, RegisterDeviceNotificationW, (HANDLE window, void* filter, DWORD flags)) {
  const auto* wanted = static_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(filter);
  const bool everyClass = wanted->dbcc_size == 32 && wanted->dbcc_devicetype == 5 && wanted->dbcc_reserved == 0 &&
                          wanted->dbcc_classguid == GUID{} && wanted->dbcc_name[0] == L'\0' && flags == 4;
  if (fails("RegisterDeviceNotificationW") || !window || !everyClass) return nullptr;
  const HDEVNOTIFY notification = SYSTEM_FUNCTION("user32", RegisterDeviceNotificationW)(window, filter, flags);
  if (notification) ++scriptedCapture().notifications;
  return notification;
}

SUBSTITUTE_IMPORT(BOOL, UnregisterDeviceNotification, (HDEVNOTIFY notification)) {
  scriptedCapture().note("UnregisterDeviceNotification");
  if (!notification) return FALSE;
  --scriptedCapture().notifications;
  return SYSTEM_FUNCTION("user32", UnregisterDeviceNotification)(notification);
}

SUBSTITUTE_IMPORT(ATOM, RegisterClassExW, (const WNDCLASSEXW* windowClass)) {
  return fails("RegisterClassExW") ? ATOM{0} : SYSTEM_FUNCTION("user32", RegisterClassExW)(windowClass);
}

SUBSTITUTE_IMPORT(int, WideCharToMultiByte, (auto... arguments)) {
  return fails("WideCharToMultiByte") ? 0 : SYSTEM_FUNCTION("kernel32", WideCharToMultiByte)(arguments...);
}

SUBSTITUTE_IMPORT(HWND, CreateWindowExW,
                  (DWORD extended, LPCWSTR name, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                   HWND parent, HMENU menu, HINSTANCE program, LPVOID parameter)) {
  const bool expected = extended == 0 && style == 0xCF0000 && x == CW_USEDEFAULT && y == x && width == x && height == x;
  if (fails("CreateWindowExW") || !expected || parent || menu) return nullptr;
  // Windows places such a window anywhere, Wine at its zeros.
  return SYSTEM_FUNCTION("user32", CreateWindowExW)(extended, name, title, style, 100, 50, 300, 200, parent, menu,
                                                    program, parameter);
}

SUBSTITUTE_IMPORT(BOOL, PostThreadMessageW, (DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)) {
  if (scriptedCapture().onQuit) scriptedCapture().onQuit();
  return SYSTEM_FUNCTION("user32", PostThreadMessageW)(thread, message, wParam, lParam);
}

SUBSTITUTE_IMPORT(BOOL, DestroyWindow, (HWND window)) {
  scriptedCapture().note("DestroyWindow");
  return SYSTEM_FUNCTION("user32", DestroyWindow)(window);
}

SUBSTITUTE_IMPORT(LRESULT, SendMessageW, (HWND window, UINT message, WPARAM wParam, LPARAM lParam)) {
  if (message == WM_CLOSE) scriptedCapture().note("WM_CLOSE");
  return SYSTEM_FUNCTION("user32", SendMessageW)(window, message, wParam, lParam);
}

SUBSTITUTE_IMPORT(BOOL, UnregisterClassW, (LPCWSTR name, HINSTANCE program)) {
  const BOOL done = SYSTEM_FUNCTION("user32", UnregisterClassW)(name, program);
  scriptedCapture().note("UnregisterClass");
  return done;
}

SUBSTITUTE_IMPORT(void, CoUninitialize, ()) {
  scriptedCapture().note("CoUninitialize");
  SYSTEM_FUNCTION("ole32", CoUninitialize)();
}

// Media Foundation's functions are not declared as imports: the program's own definitions come first.
extern "C" {
HRESULT WINAPI MFStartup(ULONG version, DWORD flags) {
  if (version != 0x20070 || flags != MFSTARTUP_FULL) return E_INVALIDARG;
  ++scriptedCapture().sessions;
  return S_OK;
}

HRESULT WINAPI MFShutdown() {
  --scriptedCapture().sessions;
  scriptedCapture().note("MFShutdown");
  return S_OK;
}

HRESULT WINAPI MFCreateAttributes(IMFAttributes** attributes, UINT32 size) {
  // The capturer asks for two places; a fake asks for more, for the store that it is made of.
  if (size != 2) return SYSTEM_FUNCTION("mfplat", MFCreateAttributes)(attributes, size);
  const FaultPause pause;
  if (fails("MFCreateAttributes")) return E_FAIL;
  *attributes = ComPtr<IMFAttributes>(new FakeAttributes<IMFAttributes>).Detach();
  return S_OK;
}

HRESULT WINAPI MFCreateMediaType(IMFMediaType** type) {
  const FaultPause pause;
  if (fails("MFCreateMediaType")) return E_FAIL;
  *type = ComPtr<IMFMediaType>(new FakeMediaType).Detach();
  return S_OK;
}

HRESULT WINAPI MFCreateDeviceSource(IMFAttributes* attributes, IMFMediaSource** source) {
  const FaultPause pause;
  if (fails("MFCreateDeviceSource")) return MF_E_ATTRIBUTENOTFOUND;
  GUID kind = {};
  attributes->GetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, &kind);
  if (kind != MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID) return E_INVALIDARG;
  WCHAR link[256] = L"";
  attributes->GetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link, 256, nullptr);
  scriptedCapture().openedLink = link;
  *source = ComPtr<IMFMediaSource>(new FakeSource).Detach();
  return S_OK;
}

HRESULT WINAPI MFCreateSourceReaderFromMediaSource(IMFMediaSource* source, IMFAttributes* attributes,
                                                   IMFSourceReader** reader) {
  const FaultPause pause;
  if (fails("MFCreateSourceReaderFromMediaSource")) return E_FAIL;
  if (MFGetAttributeUINT32(attributes, MF_SOURCE_READER_ENABLE_VIDEO_PROCESSING, 0) != 1) return E_INVALIDARG;
  ComPtr<IMFSourceReaderCallback> callback;
  const HRESULT hr = attributes->GetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, IID_PPV_ARGS(&callback));
  if (FAILED(hr)) return hr;
  *reader = ComPtr<IMFSourceReader>(new FakeReader(source, callback.Get())).Detach();
  return S_OK;
}
}

void ScriptedCapture::note(const char* step) {
  const FaultPause pause;
  const std::lock_guard lock(mutex);
  steps += std::string(" ") + step;
}

std::string ScriptedCapture::cleanUp() const {
  const std::lock_guard lock(mutex);
  return steps;
}

ScriptedCapture& scriptedCapture() {
  return *script;
}

void resetScriptedCapture() {
  script = std::make_unique<ScriptedCapture>();
}

ComPtr<IMFSample> makeSample(const std::vector<std::uint8_t>& bytes, std::function<HRESULT()> lock) {
  const FaultPause pause;
  ComPtr<IMFSample> sample;
  MFCreateSample(&sample);
  // A sample without a buffer has none at any index.
  if (fails("GetBufferByIndex")) return sample;
  sample->AddBuffer(ComPtr<IMFMediaBuffer>(new FakeBuffer(bytes, std::move(lock))).Get());
  return sample;
}

void broadcast(WPARAM event, const wchar_t* device, DWORD type) {
  auto pause = std::make_optional<FaultPause>();
  const std::wstring name(device);
  std::vector<std::uint8_t> memory(sizeof(DEV_BROADCAST_DEVICEINTERFACE_W) + name.size() * sizeof(wchar_t));
  auto* payload = reinterpret_cast<DEV_BROADCAST_DEVICEINTERFACE_W*>(memory.data());
  payload->dbcc_size = static_cast<DWORD>(memory.size());
  payload->dbcc_devicetype = type;
  std::memcpy(payload->dbcc_name, name.c_str(), (name.size() + 1) * sizeof(wchar_t));
  pause.reset();
  SendMessageW(FindWindowW(L"CameraCLASS", L"CameraWindow"), WM_DEVICECHANGE, event, reinterpret_cast<LPARAM>(payload));
}
