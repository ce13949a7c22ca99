#include "standalone/virtual_camera/media_source/camera_source.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include <dbt.h>
#include <mferror.h>
#include <mfreadwrite.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/virtual_camera/pictures/test_pattern.h"
#include "standalone/virtual_camera/source_reader/reporting_callback.h"

using Microsoft::WRL::ComPtr;

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto patience = 5s;
constexpr DWORD videoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
const QString symbolicLink = QStringLiteral("\\\\?\\usb#test");

// One call of OnReadSample.
struct Read {
  HRESULT status = S_OK;
  DWORD flags = 0;
  LONGLONG time = 0;
  std::vector<QRgb> pixels;  // of the sample's buffer, empty without a sample
};

std::vector<QRgb> pixelsOf(IMFSample* sample) {
  ComPtr<IMFMediaBuffer> buffer;
  if (!sample || FAILED(sample->GetBufferByIndex(0, &buffer))) return {};
  BYTE* bytes = nullptr;
  DWORD length = 0;
  if (FAILED(buffer->Lock(&bytes, nullptr, &length))) return {};
  const auto* first = reinterpret_cast<const QRgb*>(bytes);
  const std::vector<QRgb> pixels(first, first + length / sizeof(QRgb));
  buffer->Unlock();
  return pixels;
}

// Collects what a reader reports.
class Callback final : public ComObject<IMFSourceReaderCallback, IMFSourceReaderCallback> {
 public:
  HRESULT STDMETHODCALLTYPE OnReadSample(HRESULT status, DWORD, DWORD flags, LONGLONG time,
                                         IMFSample* sample) override {
    const std::lock_guard lock(mutex);
    reads.push_back({status, flags, time, pixelsOf(sample)});
    changed.notify_all();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnFlush(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEvent(DWORD, IMFMediaEvent*) override { return S_OK; }

  bool take(Read& read, Clock::duration longest) {
    std::unique_lock lock(mutex);
    if (!changed.wait_for(lock, longest, [this] { return !reads.empty(); })) return false;
    read = std::move(reads.front());
    reads.pop_front();
    return true;
  }

 private:
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<Read> reads;
};

CameraDescription smallCamera(std::vector<Fault> faults = {}) {
  CameraDescription camera;
  camera.name = QStringLiteral("Camera");
  camera.size = QSize(96, 64);
  camera.framesPerSecond = 100;
  camera.faults = std::move(faults);
  return camera;
}

// A camera opened with the system's reader and a reporting callback, the way a program opens one.
class CameraReader {
 public:
  explicit CameraReader(const CameraDescription& camera) {
    EXPECT_HRESULT_SUCCEEDED(CameraSource::create(camera, symbolicLink, &source));
    ComPtr<IMFAttributes> attributes;
    ComPtr<IMFAttributes> reporting;
    EXPECT_HRESULT_SUCCEEDED(MFCreateAttributes(&attributes, 2));
    attributes->SetUINT32(MF_SOURCE_READER_ENABLE_VIDEO_PROCESSING, TRUE);
    attributes->SetUnknown(MF_SOURCE_READER_ASYNC_CALLBACK, callback.Get());
    EXPECT_HRESULT_SUCCEEDED(withReportingCallback(attributes.Get(), &reporting));
    EXPECT_HRESULT_SUCCEEDED(MFCreateSourceReaderFromMediaSource(source.Get(), reporting.Get(), &reader));
  }

  // No reference to the source or the callback may be left but this object's own.
  ~CameraReader() {
    reader.Reset();
    EXPECT_EQ(referencesWithoutOurs(callback), 0U) << "of the callback";
    EXPECT_EQ(referencesWithoutOurs(source), 0U) << "of the source";
  }

  HRESULT selectRgb32() {
    ComPtr<IMFMediaType> type;
    EXPECT_HRESULT_SUCCEEDED(MFCreateMediaType(&type));
    type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    type->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_RGB32);
    return reader->SetCurrentMediaType(videoStream, nullptr, type.Get());
  }

  HRESULT request() { return reader->ReadSample(videoStream, 0, nullptr, nullptr, nullptr, nullptr); }

  // The answer to one request; a failed expectation when none comes.
  Read read() {
    EXPECT_HRESULT_SUCCEEDED(request());
    Read result;
    EXPECT_TRUE(callback->take(result, patience)) << "no answer";
    return result;
  }

  // Reads until something other than a plain frame is reported. The frames before it are counted.
  Read readPastFrames(int& frames) {
    const auto end = Clock::now() + patience;
    for (frames = 0; Clock::now() < end; ++frames) {
      const Read result = read();
      if (result.status != S_OK || result.flags != 0) return result;
    }
    ADD_FAILURE() << "only frames came";
    return {};
  }

  ComPtr<IMFMediaSource> source;
  ComPtr<IMFSourceReader> reader;
  ComPtr<Callback> callback{new Callback()};

 private:
  template <class Interface>
  static ULONG referencesWithoutOurs(ComPtr<Interface>& object) {
    // Media Foundation's threads let go of what they held a moment later.
    const auto end = Clock::now() + patience;
    while (Clock::now() < end) {
      object->AddRef();
      if (object->Release() == 1) break;
      std::this_thread::sleep_for(1ms);
    }
    return object.Detach()->Release();
  }
};

class CameraSourceTest : public testing::Test {
 protected:
  CameraSourceTest() {
    EXPECT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    EXPECT_HRESULT_SUCCEEDED(MFStartup(MF_VERSION, MFSTARTUP_FULL));
  }
  ~CameraSourceTest() override {
    MFShutdown();
    CoUninitialize();
  }
};

struct StrideCase {
  Stride stride;
  bool isStated;
  INT32 bytes;
  bool isTopDown;
};

class CameraSourceStride : public CameraSourceTest, public testing::WithParamInterface<StrideCase> {};

TEST_P(CameraSourceStride, StatesItsTypeAndDeliversRowsInThatOrder) {
  CameraDescription camera = smallCamera();
  camera.stride = GetParam().stride;
  CameraReader opened(camera);
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  ComPtr<IMFMediaType> type;
  ASSERT_HRESULT_SUCCEEDED(opened.reader->GetCurrentMediaType(videoStream, &type));
  UINT64 size = 0;
  UINT64 rate = 0;
  UINT32 stride = 0;
  EXPECT_HRESULT_SUCCEEDED(type->GetUINT64(MF_MT_FRAME_SIZE, &size));
  EXPECT_HRESULT_SUCCEEDED(type->GetUINT64(MF_MT_FRAME_RATE, &rate));
  EXPECT_EQ(size, (UINT64{96} << 32) | 64);
  EXPECT_EQ(rate, (UINT64{100} << 32) | 1);
  EXPECT_EQ(SUCCEEDED(type->GetUINT32(MF_MT_DEFAULT_STRIDE, &stride)), GetParam().isStated);
  EXPECT_EQ(static_cast<INT32>(stride), GetParam().bytes);

  const Read frame = opened.read();
  ASSERT_EQ(frame.pixels.size(), 96U * 64U);
  constexpr QRgb colour = 0x00FFFFFF;  // the unused byte comes as 0
  const auto& corners = TestPattern::corners;
  EXPECT_EQ(frame.pixels.front(), (GetParam().isTopDown ? corners.topLeft : corners.bottomLeft) & colour);
  EXPECT_EQ(frame.pixels.back(), (GetParam().isTopDown ? corners.bottomRight : corners.topRight) & colour);
}

INSTANTIATE_TEST_SUITE_P(, CameraSourceStride,
                         testing::Values(StrideCase{Stride::Positive, true, 384, true},
                                         StrideCase{Stride::Negative, true, -384, false},
                                         StrideCase{Stride::Absent, false, 0, true}));

TEST_F(CameraSourceTest, FramesComeAtTheirRate) {
  CameraReader opened(smallCamera());
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  const LONGLONG first = opened.read().time;
  const auto start = Clock::now();
  LONGLONG last = first;
  for (int i = 0; i < 40; ++i) {
    const LONGLONG time = opened.read().time;
    EXPECT_GT(time, last);
    last = time;
  }
  const std::chrono::duration<double> passed = Clock::now() - start;
  EXPECT_GE(passed.count(), 0.36) << "faster than the camera";
  EXPECT_NEAR(passed.count(), static_cast<double>(last - first) / 1e7, 0.1) << "times of the samples and of the clock";
}

TEST_F(CameraSourceTest, ACameraWithoutRgb32IsRefusedByTheReader) {
  CameraReader opened(smallCamera({{FaultKind::NotRgb32}}));
  EXPECT_HRESULT_FAILED(opened.selectRgb32());
}

TEST_F(CameraSourceTest, ATickComesOnceAndFramesGoOn) {
  CameraReader opened(smallCamera({{FaultKind::Tick, 0.1}}));
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  int frames = 0;
  const Read tick = opened.readPastFrames(frames);
  EXPECT_GT(frames, 0);
  EXPECT_EQ(tick.flags, DWORD{MF_SOURCE_READERF_STREAMTICK});
  EXPECT_TRUE(tick.pixels.empty());
  for (int i = 0; i < 10; ++i) {
    const Read frame = opened.read();
    EXPECT_EQ(frame.flags, 0U);
    EXPECT_FALSE(frame.pixels.empty());
  }
}

// A tick at the beginning of the stall comes in it.
TEST_F(CameraSourceTest, AStallHoldsTheFramesBack) {
  Fault stall{FaultKind::Stall, 0.1};
  stall.duration = 0.3;
  CameraReader opened(smallCamera({stall, {FaultKind::Tick, 0.1}}));
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  int frames = 0;
  const Read tick = opened.readPastFrames(frames);
  EXPECT_EQ(tick.flags, DWORD{MF_SOURCE_READERF_STREAMTICK});
  EXPECT_LT(tick.time, 2'000'000);
  EXPECT_GE(opened.read().time, 4'000'000);
}

TEST_F(CameraSourceTest, TheEndOfTheStreamIsReported) {
  CameraReader opened(smallCamera({{FaultKind::EndOfStream, 0.1}}));
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  int frames = 0;
  const Read end = opened.readPastFrames(frames);
  EXPECT_GT(frames, 0);
  EXPECT_EQ(end.flags, DWORD{MF_SOURCE_READERF_ENDOFSTREAM});
}

struct FailureCase {
  FaultKind kind;
  HRESULT status;
  bool framesFirst;
};

class CameraSourceFailure : public CameraSourceTest, public testing::WithParamInterface<FailureCase> {};

TEST_P(CameraSourceFailure, IsReportedToTheCallbackAndStays) {
  const FailureCase& c = GetParam();
  CameraReader opened(smallCamera({{c.kind, c.framesFirst ? 0.1 : 0.0}}));
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  int frames = 0;
  Read failure = opened.readPastFrames(frames);
  EXPECT_EQ(frames > 0, c.framesFirst);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(failure.status, c.status);
    EXPECT_EQ(failure.flags, DWORD{MF_SOURCE_READERF_ERROR});
    EXPECT_TRUE(failure.pixels.empty());
    failure = opened.read();
  }
}

INSTANTIATE_TEST_SUITE_P(
    , CameraSourceFailure,
    testing::Values(FailureCase{FaultKind::FirstReadFails, MF_E_VIDEO_RECORDING_DEVICE_PREEMPTED, false},
                    FailureCase{FaultKind::Invalidated, MF_E_VIDEO_RECORDING_DEVICE_INVALIDATED, true},
                    FailureCase{FaultKind::Error, HRESULT_FROM_WIN32(ERROR_GEN_FAILURE), true}));

TEST_F(CameraSourceTest, ASizeChangeIsReportedWithTheFirstFrameOfTheNewSize) {
  Fault change{FaultKind::SizeChange, 0.1};
  change.size = QSize(80, 70);
  CameraReader opened(smallCamera({change}));
  ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
  int frames = 0;
  const Read changed = opened.readPastFrames(frames);
  EXPECT_GT(frames, 0);
  EXPECT_EQ(changed.flags, DWORD{MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED});
  EXPECT_EQ(changed.pixels.size(), 80U * 70U);
  const Read next = opened.read();
  EXPECT_EQ(next.flags, 0U);
  EXPECT_EQ(next.pixels.size(), 80U * 70U);
}

// What a window of this process is told about removals.
std::wstring removedInterface;

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DEVICECHANGE && wParam == DBT_DEVICEREMOVECOMPLETE) {
    const auto* broadcast = reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(lParam);
    if (broadcast->dbcc_devicetype == DBT_DEVTYP_DEVICEINTERFACE) removedInterface = broadcast->dbcc_name;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(CameraSourceTest, ARemovalIsBroadcastToTheWindowsOfTheProcessAndEndsTheFrames) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = windowProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"RemovalTest";
  ASSERT_NE(RegisterClassW(&windowClass), 0);
  HWND window = CreateWindowExW(0, L"RemovalTest", L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
                                windowClass.hInstance, nullptr);
  ASSERT_NE(window, nullptr);
  removedInterface.clear();
  {
    CameraReader opened(smallCamera({{FaultKind::Removed, 0.1}}));
    ASSERT_HRESULT_SUCCEEDED(opened.selectRgb32());
    EXPECT_HRESULT_SUCCEEDED(opened.request());
    const auto end = Clock::now() + patience;
    for (int frames = 0; removedInterface.empty() && Clock::now() < end;) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
      Read read;
      if (opened.callback->take(read, 5ms)) {
        EXPECT_LT(++frames, 20);
        EXPECT_HRESULT_SUCCEEDED(opened.request());
      }
    }
    Read read;
    EXPECT_FALSE(opened.callback->take(read, 100ms)) << "a frame after the removal";
  }
  EXPECT_EQ(removedInterface, symbolicLink.toStdWString());
  DestroyWindow(window);
  UnregisterClassW(L"RemovalTest", windowClass.hInstance);
}

// The next event of a generator, which must be of this type.
ComPtr<IMFMediaEvent> nextEvent(IMFMediaEventGenerator* generator, MediaEventType expected) {
  ComPtr<IMFMediaEvent> event;
  MediaEventType type = MEUnknown;
  EXPECT_HRESULT_SUCCEEDED(generator->GetEvent(0, &event));
  if (event) event->GetType(&type);
  EXPECT_EQ(type, expected);
  return event;
}

// A program may run the source itself; a second start begins anew, and requests of the first run are dropped.
TEST_F(CameraSourceTest, StartsStopsStartsAgainAndShutsDown) {
  ComPtr<IMFMediaSource> source;
  ASSERT_HRESULT_SUCCEEDED(CameraSource::create(smallCamera({{FaultKind::Tick, 0.05}}), symbolicLink, &source));
  ComPtr<IMFPresentationDescriptor> descriptor;
  ASSERT_HRESULT_SUCCEEDED(source->CreatePresentationDescriptor(&descriptor));
  PROPVARIANT position{};
  ComPtr<IMFMediaStream> stream;
  ComPtr<Callback> token(new Callback());
  for (const MediaEventType announcement : {MENewStream, MEUpdatedStream}) {
    ASSERT_HRESULT_SUCCEEDED(source->Start(descriptor.Get(), &GUID_NULL, &position));
    PROPVARIANT value{};
    nextEvent(source.Get(), announcement)->GetValue(&value);
    ASSERT_EQ(value.vt, VT_UNKNOWN);
    ASSERT_HRESULT_SUCCEEDED(value.punkVal->QueryInterface(IID_PPV_ARGS(stream.ReleaseAndGetAddressOf())));
    PropVariantClear(&value);
    nextEvent(source.Get(), MESourceStarted);
    nextEvent(stream.Get(), MEStreamStarted);
    EXPECT_HRESULT_SUCCEEDED(stream->RequestSample(token.Get()));
    ComPtr<IUnknown> returned;
    PROPVARIANT sample{};
    nextEvent(stream.Get(), MEMediaSample)->GetValue(&sample);
    ComPtr<IMFSample> frame;
    ASSERT_HRESULT_SUCCEEDED(sample.punkVal->QueryInterface(IID_PPV_ARGS(&frame)));
    PropVariantClear(&sample);
    EXPECT_HRESULT_SUCCEEDED(frame->GetUnknown(MFSampleExtension_Token, IID_PPV_ARGS(&returned)));
    EXPECT_EQ(returned.Get(), static_cast<IUnknown*>(token.Get()));
    std::this_thread::sleep_for(60ms);
    EXPECT_HRESULT_SUCCEEDED(stream->RequestSample(nullptr));
    nextEvent(stream.Get(), MEStreamTick);  // the tick of this run's time line
    nextEvent(stream.Get(), MEMediaSample);
    EXPECT_HRESULT_SUCCEEDED(stream->RequestSample(token.Get()));
    EXPECT_HRESULT_SUCCEEDED(source->Stop());
    nextEvent(source.Get(), MESourceStopped);
    ComPtr<IMFMediaEvent> event;
    while (SUCCEEDED(stream->GetEvent(MF_EVENT_FLAG_NO_WAIT, event.ReleaseAndGetAddressOf()))) continue;
    EXPECT_EQ(stream->RequestSample(nullptr), MF_E_MEDIA_SOURCE_WRONGSTATE);
  }
  EXPECT_EQ(source->Pause(), MF_E_INVALID_STATE_TRANSITION);
  EXPECT_HRESULT_SUCCEEDED(source->Shutdown());
  EXPECT_EQ(source->Shutdown(), MF_E_SHUTDOWN);
  EXPECT_EQ(source->Start(descriptor.Get(), nullptr, &position), MF_E_SHUTDOWN);
  EXPECT_EQ(stream->RequestSample(nullptr), MF_E_SHUTDOWN);
  EXPECT_EQ(token.Detach()->Release(), 0U);
  stream.Reset();
  EXPECT_EQ(source.Detach()->Release(), 0U);
}

TEST_F(CameraSourceTest, SamplesOfOtherSourcesPassTheReportingCallbackUnchanged) {
  const ComPtr<Callback> program(new Callback());
  const ComPtr<ReportingCallback> reporting(new ReportingCallback(program.Get()));
  reporting->OnReadSample(MF_E_NOTACCEPTING, 3, MF_SOURCE_READERF_STREAMTICK, 77, nullptr);
  Read read;
  ASSERT_TRUE(program->take(read, patience));
  EXPECT_EQ(read.status, MF_E_NOTACCEPTING);
  EXPECT_EQ(read.flags, DWORD{MF_SOURCE_READERF_STREAMTICK});
  EXPECT_EQ(read.time, 77);

  ComPtr<IMFAttributes> result;
  EXPECT_HRESULT_SUCCEEDED(withReportingCallback(nullptr, &result));
  EXPECT_EQ(result.Get(), nullptr);
}

}  // namespace
