// A planted camera as a program meets it: listed, opened, started and read through Media Foundation's interfaces.

#include <windows.h>
#include <dbt.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstring>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/description/camera_identity.h"
#include "standalone/virtual_camera/media_source/sample_marks.h"
#include "standalone/virtual_camera/pictures/test_pattern.h"
#include "standalone/virtual_camera/planter/device_broadcast.h"
#include "standalone/virtual_camera/planter/device_planter.h"
#include "standalone/virtual_camera/planter/device_presence.h"

using Microsoft::WRL::ComPtr;

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// What a frame of 64 x 64 pixels takes.
constexpr DWORD kFrameBytes = 64 * 64 * 4;

class VirtualCamera : public testing::Test {
 protected:
  VirtualCamera() { MFStartup(MF_VERSION, MFSTARTUP_LITE); }
  ~VirtualCamera() override {
    if (source) source->Shutdown();
    EXPECT_EQ(unplantCameras(), QString());
    MFShutdown();
  }

  // One camera with these further keys.
  void plant(const QByteArray& more) {
    const QString path = folder.filePath(QStringLiteral("cameras.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"cameras":[{"name":"A","connection":"usb","width":64,"height":64,"framesPerSecond":50)" + more +
               "}]}");
    file.close();
    const CameraFile read = readCameraFile(path);
    ASSERT_EQ(read.error, QString());
    link = identityOf(read.cameras.front(), 0).symbolicLink;
    ASSERT_EQ(plantCameras(read.cameras, path), QString());
  }

  static ComPtr<IMFAttributes> captureDevices() {
    ComPtr<IMFAttributes> attributes;
    MFCreateAttributes(&attributes, 2);
    attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
    return attributes;
  }

  HRESULT open() {
    const auto attributes = captureDevices();
    attributes->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, link.toStdWString().c_str());
    return MFCreateDeviceSource(attributes.Get(), &source);
  }

  static UINT32 listed() {
    IMFActivate** activates = nullptr;
    UINT32 count = 0;
    EXPECT_EQ(MFEnumDeviceSources(captureDevices().Get(), &activates, &count), S_OK);
    for (UINT32 i = 0; i < count; ++i) activates[i]->Release();
    CoTaskMemFree(activates);
    return count;
  }

  // Starts the opened camera; `stream` is its stream then.
  void start() {
    ComPtr<IMFPresentationDescriptor> descriptor;
    ASSERT_EQ(source->CreatePresentationDescriptor(&descriptor), S_OK);
    PROPVARIANT position{};
    ASSERT_EQ(source->Start(descriptor.Get(), &GUID_NULL, &position), S_OK);
    ComPtr<IMFMediaEvent> event = nextEvent(source.Get());
    ASSERT_TRUE(event);
    PROPVARIANT value{};
    event->GetValue(&value);
    ASSERT_EQ(value.punkVal->QueryInterface(IID_PPV_ARGS(&stream)), S_OK);
    PropVariantClear(&value);
    EXPECT_EQ(nextType(), MEStreamStarted);
  }

  // Null when nothing comes within `patience`.
  static ComPtr<IMFMediaEvent> nextEvent(IMFMediaEventGenerator* generator, Clock::duration patience = 5s) {
    ComPtr<IMFMediaEvent> event;
    for (const auto end = Clock::now() + patience; Clock::now() < end; std::this_thread::sleep_for(2ms)) {
      if (generator->GetEvent(MF_EVENT_FLAG_NO_WAIT, &event) == S_OK) break;
    }
    return event;
  }

  MediaEventType nextType() {
    MediaEventType type = MEUnknown;
    if (const auto event = nextEvent(stream.Get())) event->GetType(&type);
    return type;
  }

  // The next event of the stream has to be a sample.
  ComPtr<IMFSample> nextSample() {
    ComPtr<IMFSample> sample;
    const auto event = nextEvent(stream.Get());
    PROPVARIANT value{};
    if (event) event->GetValue(&value);
    EXPECT_TRUE(value.vt == VT_UNKNOWN && value.punkVal->QueryInterface(IID_PPV_ARGS(&sample)) == S_OK);
    PropVariantClear(&value);
    return sample;
  }

  ComPtr<IMFSample> requestSample(IUnknown* token = nullptr) {
    EXPECT_EQ(stream->RequestSample(token), S_OK);
    return nextSample();
  }

  // The pixels of a frame; nothing when its buffer cannot be locked.
  static std::optional<std::vector<DWORD>> pixelsOf(IMFSample* sample) {
    ComPtr<IMFMediaBuffer> buffer;
    BYTE* bytes = nullptr;
    DWORD length = 0;
    if (!sample || FAILED(sample->GetBufferByIndex(0, &buffer)) || FAILED(buffer->Lock(&bytes, nullptr, &length))) {
      return std::nullopt;
    }
    std::vector<DWORD> pixels(length / sizeof(DWORD));
    std::memcpy(pixels.data(), bytes, length);
    buffer->Unlock();
    return pixels;
  }

  QTemporaryDir folder;
  QString link;
  ComPtr<IMFMediaSource> source;
  ComPtr<IMFMediaStream> stream;
};

TEST_F(VirtualCamera, AnswersEachRequestWithAFrameAndItsToken) {
  constexpr DWORD kColours = 0x00FFFFFF;
  for (const auto& [stride, first] : {std::pair<const char*, QRgb>{"positive", TestPattern::kCorners.topLeft},
                                      {"negative", TestPattern::kCorners.bottomLeft}}) {
    plant(QByteArray(R"(,"stride":")") + stride + '"');
    ASSERT_EQ(open(), S_OK);
    ComPtr<IUnknown> token;
    ASSERT_EQ(source.As(&token), S_OK);
    for (int starts = 0; starts < 2; ++starts) {
      start();
      LONGLONG before = -1;
      for (int frame = 0; frame < 3; ++frame) {
        const ComPtr<IMFSample> sample = requestSample(token.Get());
        ASSERT_TRUE(sample);
        const auto pixels = pixelsOf(sample.Get());
        ASSERT_TRUE(pixels && pixels->size() * sizeof(DWORD) == kFrameBytes);
        EXPECT_EQ(pixels->front(), first & kColours);
        ComPtr<IUnknown> returned;
        EXPECT_EQ(sample->GetUnknown(MFSampleExtension_Token, IID_PPV_ARGS(&returned)), S_OK);
        EXPECT_EQ(returned, token);
        LONGLONG time = 0;
        sample->GetSampleTime(&time);
        EXPECT_GT(time, before);
        before = time;
      }
      EXPECT_EQ(source->Stop(), S_OK);
      EXPECT_EQ(stream->RequestSample(nullptr), MF_E_MEDIA_SOURCE_WRONGSTATE);
      EXPECT_EQ(nextType(), MEStreamStopped);
      while (nextEvent(source.Get(), 1ms)) {
      }
    }
    EXPECT_EQ(source->Shutdown(), S_OK);
    EXPECT_EQ(stream->RequestSample(nullptr), MF_E_SHUTDOWN);
    EXPECT_EQ(source->Stop(), MF_E_SHUTDOWN);
  }
}

TEST_F(VirtualCamera, ItsFaultsComeInTheirOwnWays) {
  struct Case {
    const char* faults;
    MediaEventType next;  // of the stream; MEUnknown: nothing comes
  };
  for (const auto& [faults, next] :
       {Case{R"({"kind":"tick","at":0})", MEStreamTick},
        {R"({"kind":"stall","at":0})", MEUnknown},
        {R"({"kind":"end-of-stream","at":0})", MEEndOfStream},
        {R"({"kind":"size-change","at":0,"width":80,"height":64})", MEStreamFormatChanged}}) {
    SCOPED_TRACE(faults);
    plant(QByteArray(R"(,"faults":[)") + faults + "]");
    ASSERT_EQ(open(), S_OK);
    start();
    stream->RequestSample(nullptr);
    const auto event = nextEvent(stream.Get(), next == MEUnknown ? 300ms : 5s);
    MediaEventType type = MEUnknown;
    if (event) event->GetType(&type);
    EXPECT_EQ(type, next);
    source->Shutdown();
  }
}

TEST_F(VirtualCamera, ItsFaultyFramesAreFramesAllTheSame) {
  plant(R"(,"faults":[{"kind":"short","at":0,"share":0.5},{"kind":"unlockable","at":0},{"kind":"black","at":0}])");
  ASSERT_EQ(open(), S_OK);
  start();
  const ComPtr<IMFSample> unlockable = requestSample();
  EXPECT_FALSE(pixelsOf(unlockable.Get())) << "the first attempt";
  for (const ComPtr<IMFSample>& sample : {unlockable, requestSample()}) {
    EXPECT_EQ(pixelsOf(sample.Get()), std::vector<DWORD>(kFrameBytes / 2 / sizeof(DWORD), 0));
  }

  plant(R"(,"faults":[{"kind":"first-read-fails"}])");
  source->Shutdown();
  ASSERT_EQ(open(), S_OK);
  start();
  UINT32 status = S_OK;
  EXPECT_EQ(requestSample()->GetUINT32(sample_marks::kReadFails, &status), S_OK);
  EXPECT_EQ(static_cast<HRESULT>(status), MF_E_VIDEO_RECORDING_DEVICE_PREEMPTED);
}

TEST_F(VirtualCamera, OpensAndStopsAsItsFaultsHaveIt) {
  plant(
      R"(,"faults":[{"kind":"busy","times":2},{"kind":"slow-open","seconds":0.3},{"kind":"slow-stop","seconds":0.4}])");
  for (const HRESULT status : {HRESULT_FROM_WIN32(ERROR_BUSY), HRESULT_FROM_WIN32(ERROR_BUSY), S_OK}) {
    const auto begin = Clock::now();
    ASSERT_EQ(open(), status);
    EXPECT_GE(Clock::now() - begin, 290ms);
  }
  start();
  const auto begin = Clock::now();
  source->Stop();
  source->Shutdown();
  EXPECT_GE(Clock::now() - begin, 390ms);
  EXPECT_LT(Clock::now() - begin, 790ms) << "only what runs is slow to stop";
  plant(R"(,"faults":[{"kind":"no-open"}])");
  EXPECT_EQ(open(), E_ACCESSDENIED);
}

// A window that registered for the interface class of cameras.
class Listener {
 public:
  Listener() : window(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    DEV_BROADCAST_DEVICEINTERFACE_W filter{};
    filter.dbcc_size = sizeof filter;
    filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
    filter.dbcc_classguid = {0xe5323777, 0xf976, 0x4f5b, {0x9b, 0x55, 0xb9, 0x46, 0x99, 0xc4, 0x6e, 0x44}};
    notification = RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE);
    // Wine registers on a thread of its own; what happens before is not told.
    for (int tries = 0; !isHeard && tries < 100; ++tries) {
      EXPECT_EQ(broadcastDeviceChange(DeviceChange::kRemoval, L"probe"), 0U);
      pump();
    }
  }
  ~Listener() {
    UnregisterDeviceNotification(notification);
    DestroyWindow(window);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  // The next `count` devices that came (+) or went (-); fewer when they are late.
  static std::vector<std::wstring> wait(std::size_t count) {
    for (const auto end = Clock::now() + 5s; told.size() < count && Clock::now() < end;) pump();
    return std::exchange(told, {});
  }

 private:
  static void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
  }

  static LRESULT CALLBACK procedure(HWND listener, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DEVICECHANGE) {
      const std::wstring name = reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(lParam)->dbcc_name;
      if (name == L"probe") isHeard = true;
      if (name != L"probe") told.push_back((wParam == DBT_DEVICEARRIVAL ? L"+" : L"-") + name);
    }
    return DefWindowProcW(listener, message, wParam, lParam);
  }

  static inline std::vector<std::wstring> told;
  static inline bool isHeard = false;
  HWND window;
  HDEVNOTIFY notification;
};

TEST_F(VirtualCamera, IsGoneWhileItIsUnpluggedAndTellsTheWindowsThatRegistered) {
  using Told = std::vector<std::wstring>;
  plant("");
  const std::wstring name = link.toStdWString();
  const Listener listener;
  ASSERT_EQ(open(), S_OK);
  start();
  ASSERT_TRUE(requestSample());
  const ComPtr<IMFMediaSource> lost = source;
  for (int times = 0; times < 2; ++times) EXPECT_EQ(setPluggedIn(link, false), QString());
  EXPECT_EQ(listed(), 0U);
  EXPECT_EQ(open(), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(setPluggedIn(link, true), QString());
  EXPECT_EQ(listed(), 1U);
  EXPECT_EQ(Listener::wait(2), (Told{L"-" + name, L"+" + name}));
  stream->RequestSample(nullptr);
  EXPECT_FALSE(nextEvent(stream.Get(), 200ms)) << "a stream that lost its camera does not go on";
  lost->Shutdown();

  // By its own time line, which goes on after the stream.
  plant(R"(,"faults":[{"kind":"other-removed","at":0.1},{"kind":"removed","at":0.3},{"kind":"returns","at":2}])");
  EXPECT_EQ(Listener::wait(2), (Told{L"-" + name, L"+" + name})) << "planted anew";
  ASSERT_EQ(open(), S_OK);
  start();
  const Told told = Listener::wait(2);
  EXPECT_EQ(listed(), 0U);
  source->Shutdown();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_NE(told[0], told[1]);
  EXPECT_EQ(told[1], L"-" + name);
  EXPECT_EQ(Listener::wait(1), Told{L"+" + name});
  EXPECT_EQ(listed(), 1U);
}

}  // namespace
