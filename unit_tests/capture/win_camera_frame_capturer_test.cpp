#include "capture/win_camera_frame_capturer.h"

#include <windows.h>
#include <dbt.h>

#include <QSemaphore>

#include <cstdlib>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "discovery/win_camera_component.h"
#include "unit_tests/capture/fake_reader.h"
#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fake_host_services.h"

using Microsoft::WRL::ComPtr;

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr char kPath[] = "\\\\?\\usb#VID_1#{E5323777}";
const std::string kCleanUp =
    " UnregisterDeviceNotification DestroyWindow WM_CLOSE UnregisterClass reader MFShutdown CoUninitialize";
constexpr HRESULT kInvalidated = static_cast<HRESULT>(0xC00D3EA2);
const auto kFails = [] { return E_FAIL; };

/// Whether new[] has no memory, where its caller asks for no exception.
std::atomic<bool> arraysFail{false};

using Capturer = ComPtr<WinCameraFrameCapturer>;

class WinCameraFrameCapturerTest : public testing::Test {
 protected:
  WinCameraFrameCapturerTest() {
    resetFakeHostServices();
    resetScriptedCapture();
    // A wait that nothing ends is over after 5001 readings of the clock.
    fakeHostServices().ticksPerReading = 1;
    capturer = makeCapturer();
  }
  ~WinCameraFrameCapturerTest() override {
    static_cast<void>(capturer->stop());
    expectNothingLeft();
  }

  /// No worker, none of what a worker makes, and no reference of its own.
  void expectNothingLeft() {
    EXPECT_EQ(fakeHostServices().threadsWaitedFor, fakeHostServices().threadsCreated);
    EXPECT_EQ(fakeComObjects, 0);
    EXPECT_EQ(scriptedCapture().notifications, 0);
    EXPECT_EQ(scriptedCapture().sessions, 0);
    WNDCLASSW windowClass;
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"CameraCLASS", &windowClass));
    EXPECT_EQ(capturer->AddRef(), 2u);
    capturer->Release();
  }

  Capturer makeCapturer() {
    Capturer made;
    *made.GetAddressOf() = new WinCameraFrameCapturer(&camera);  // born with one reference
    return made;
  }

  /// Starts the capture and waits for the first read.
  void startReading() {
    ASSERT_EQ(capturer->start(), CaptureOk);
    while (scriptedCapture().reads == 0) Sleep(1);
  }

  void push(HRESULT hr, DWORD flags, const ComPtr<IMFSample>& sample) {
    scriptedCapture().callback.load()->OnReadSample(hr, 0, flags, 0, sample.Get());
  }
  void push(const Bytes& bytes) { push(S_OK, 0, makeSample(bytes)); }

  using Frame = std::pair<CaptureStatus, Bytes>;
  /// What the capturer answers when it is asked for a frame, and the first `size` bytes of that.
  Frame frame(std::size_t size = 8) {
    std::uint8_t* buffer = nullptr;
    const CaptureStatus status = capturer->getFrame(buffer, 5000);
    const std::unique_ptr<std::uint8_t[]> owned(buffer);
    return {status, buffer ? Bytes(buffer, buffer + size) : Bytes()};
  }
  CaptureStatus frameStatus() { return frame().first; }

  WinCameraComponent camera{{kPath, "", "", "", "", "", "", "", CameraType::kUsb}, 0};
  Capturer capturer;
};

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return arraysFail ? nullptr : std::malloc(size);
}

TEST_F(WinCameraFrameCapturerTest, StartsOnAThreadOfItsOwnAndDeliversOpaqueCopies) {
  FrameFormat format{7, 7, true};
  EXPECT_EQ(frameStatus(), 116u);
  EXPECT_EQ(capturer->stop(), 116u);
  EXPECT_EQ(capturer->getFrameFormat(format), 1);
  EXPECT_EQ(format.width, 7u);
  ASSERT_EQ(capturer->start(), CaptureOk);
  EXPECT_EQ(fakeHostServices().lastThreadName, "WinCameraFrameCapturer");
  EXPECT_EQ(fakeHostServices().priorities, std::vector<int>{4});
  EXPECT_EQ(scriptedCapture().openedLink, L"\\\\?\\usb#VID_1#{E5323777}");
  EXPECT_EQ(capturer->start(), 117u);

  ASSERT_EQ(capturer->getFrameFormat(format), 0);
  EXPECT_EQ(format.width, 2u);
  EXPECT_EQ(format.height, 1u);
  EXPECT_TRUE(format.topDown);

  push({1, 2, 3, 0, 5, 6, 7, 9});
  const Frame expected{CaptureOk, {1, 2, 3, 0xFF, 5, 6, 7, 0xFF}};
  EXPECT_EQ(frame(), expected);
  EXPECT_EQ(frame(), expected) << "the same frame again until the next one arrives";

  EXPECT_EQ(capturer->stop(), CaptureOk);
  EXPECT_EQ(fakeHostServices().threadsWaitedFor, 1);
  EXPECT_EQ(scriptedCapture().cleanUp(), kCleanUp);
  EXPECT_EQ(capturer->stop(), CaptureNotRunning);

  ASSERT_EQ(capturer->start(), CaptureOk) << "can be started again";
  EXPECT_EQ(frameStatus(), 50u) << "without the frame of the run before";
  EXPECT_EQ(capturer->stop(), 113u);
}

TEST_F(WinCameraFrameCapturerTest, TheRowOrderFollowsTheStride) {
  for (const std::optional<int> stride :
       {std::optional(-8), std::optional(0), std::optional(8), std::optional<int>()}) {
    scriptedCapture().stride = stride;
    ASSERT_EQ(capturer->start(), CaptureOk);
    FrameFormat format;
    EXPECT_EQ(capturer->getFrameFormat(format), 0);
    EXPECT_EQ(format.topDown, stride != -8 && stride != 0);
    EXPECT_EQ(capturer->stop(), CaptureNoFrameYet);
  }
}

TEST_F(WinCameraFrameCapturerTest, AStartThatFailsIsReportedAndLeavesNothingBehindForTheNext) {
  const std::pair<std::set<std::string>, CaptureStatus> failures[] = {
      {{"MFCreateDeviceSource"}, 114},
      {{"MFCreateSourceReaderFromMediaSource"}, 115},
      {{"SetCurrentMediaType"}, 115},
      {{"SetStreamSelection 1"}, 115},
      {{"SetStreamSelection 2"}, 115},
      {{"GetCurrentMediaType"}, 115},
      {{"subtype"}, 115},
      {{"frame size"}, 115},
      {{"frame rate"}, 115},
      {{"CreateWindow"}, 115},
      {{"RegisterDeviceNotification"}, 115},
      // The watch is begun even so.
      {{"MFCreateDeviceSource", "RegisterDeviceNotification"}, 115}};
  const Capturer another = makeCapturer();
  DWORD handles[2] = {};
  for (DWORD& openHandles : handles) {
    for (const auto& [calls, status] : failures) {
      SCOPED_TRACE(*calls.begin());
      resetScriptedCapture();
      scriptedCapture().failing = calls;
      EXPECT_EQ(capturer->start(), status);
      expectNothingLeft();
      EXPECT_EQ(frameStatus(), CaptureNotRunning);
      EXPECT_EQ(capturer->stop(), CaptureNotRunning);
      const bool withoutReader = calls.contains("MFCreateSourceReaderFromMediaSource");
      EXPECT_EQ(scriptedCapture().sourceShutdowns, withoutReader ? 1 : 0);
      EXPECT_EQ(scriptedCapture().reads, 0);
      std::string cleanUp = kCleanUp;
      if (withoutReader || calls.contains("MFCreateDeviceSource")) cleanUp.erase(cleanUp.find(" reader"), 7);
      EXPECT_EQ(scriptedCapture().cleanUp(), cleanUp);

      scriptedCapture().failing.clear();
      for (WinCameraFrameCapturer* const next : {capturer.Get(), another.Get()}) {
        EXPECT_EQ(next->start(), CaptureOk);
        EXPECT_EQ(next->stop(), CaptureNoFrameYet);
      }
    }
    GetProcessHandleCount(GetCurrentProcess(), &openHandles);
  }
  EXPECT_LE(handles[1], handles[0]);
}

TEST_F(WinCameraFrameCapturerTest, StopLetsTheCallbackUnderWayFinishWithItsReader) {
  startReading();
  QSemaphore reached, open;
  std::thread callback(
      [&] { push(S_OK, 0, makeSample(Bytes(4), [&] { return reached.release(), open.acquire(), S_OK; })); });
  reached.acquire();
  EXPECT_EQ(frameStatus(), CaptureTimedOut) << "a consumer does not wait behind the copy";
  std::thread stopper([&] { EXPECT_EQ(capturer->stop(), CaptureOk); });
  for (int wait = 0; wait < 5000 && !scriptedCapture().cleanUp().ends_with(" UnregisterClass"); ++wait) Sleep(1);
  Sleep(20);
  EXPECT_TRUE(scriptedCapture().cleanUp().ends_with(" UnregisterClass")) << "the reader is next, and in use";
  open.release();
  callback.join();
  stopper.join();
  EXPECT_EQ(scriptedCapture().reads, 2);
  EXPECT_EQ(scriptedCapture().cleanUp(), kCleanUp);

  resetScriptedCapture();
  startReading();
  scriptedCapture().onQuit = [this] { push(Bytes(8, 1)); };
  EXPECT_EQ(capturer->stop(), CaptureNoFrameYet) << "what comes now is not taken";
  EXPECT_EQ(scriptedCapture().reads, 1);
}

TEST_F(WinCameraFrameCapturerTest, ASecondCapturerIsRefusedAndHarmsNothing) {
  startReading();
  IMFSourceReaderCallback* const first = scriptedCapture().callback;
  const Capturer second = makeCapturer();
  EXPECT_EQ(second->start(), CaptureInitFailed);
  EXPECT_EQ(second->stop(), CaptureNotRunning);

  first->OnReadSample(S_OK, 0, 0, 0, makeSample(Bytes(8, 3)).Get());
  EXPECT_EQ(frameStatus(), CaptureOk);
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"\\\\?\\USB#vid_1#{e5323777}");
  EXPECT_EQ(frameStatus(), CaptureDeviceRemoved);
}

TEST_F(WinCameraFrameCapturerTest, AFirstReadThatFailsIsSeenByTheFirstWait) {
  scriptedCapture().failing = {"ReadSample 1"};
  EXPECT_EQ(capturer->start(), CaptureOk);
  while (frameStatus() == CaptureTimedOut) continue;
  EXPECT_EQ(frameStatus(), CaptureFailed);
  // The worker goes with its reader, yet a driver may still call.
  while (scriptedCapture().sessions != 0) Sleep(1);
  capturer->OnReadSample(S_OK, 0, 0, 0, makeSample(Bytes(8, 1)).Get());
  EXPECT_EQ(frameStatus(), CaptureFailed);
  EXPECT_EQ(capturer->stop(), CaptureFailed);
}

TEST_F(WinCameraFrameCapturerTest, TheLastSampleLeavesItsStatusAndNoMoreAreRead) {
  const std::tuple<HRESULT, DWORD, CaptureStatus> lastSamples[] = {
      {kInvalidated, 0, 38},
      {kInvalidated, MF_SOURCE_READERF_ERROR, 38},
      {E_FAIL, 0, 1},
      {S_OK, MF_SOURCE_READERF_ENDOFSTREAM, CaptureFailed},
      {S_OK, MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED, CaptureFailed},
      {S_OK, MF_SOURCE_READERF_ERROR, CaptureFailed}};
  for (const auto& [readStatus, flags, status] : lastSamples) {
    resetScriptedCapture();
    startReading();
    push(readStatus, flags, makeSample(Bytes(8, 1)));
    EXPECT_EQ(frameStatus(), status) << readStatus << " " << flags;
    EXPECT_EQ(scriptedCapture().reads, 1);
    EXPECT_EQ(capturer->stop(), status);
  }
}

TEST_F(WinCameraFrameCapturerTest, ATickMakesTheConsumerWaitForARealFrameAndAReadThatFailsEndsTheCapture) {
  startReading();
  push(Bytes(8, 1));
  push(S_OK, MF_SOURCE_READERF_STREAMTICK, nullptr);
  const std::uint64_t before = fakeHostServices().ticks;
  EXPECT_EQ(frameStatus(), CaptureTimedOut);
  EXPECT_EQ(fakeHostServices().ticks - before, 5002u) << "the first reading, and 5001 ms from it on";
  EXPECT_EQ(scriptedCapture().reads, 3);
  scriptedCapture().failing = {"ReadSample 4"};
  push(Bytes(8, 1));
  EXPECT_EQ(frameStatus(), CaptureFailed);
}

TEST_F(WinCameraFrameCapturerTest, FaultsOfABufferAreItsHresultButALockThatFailsShowsTheOldFrame) {
  startReading();
  push(Bytes(8, 4));
  push(S_OK, 0, makeSample(Bytes(8), kFails));
  EXPECT_EQ(frame(), (Frame{CaptureOk, {4, 4, 4, 0xFF, 4, 4, 4, 0xFF}}));
  const ComPtr<IMFSample> sample = makeSample(Bytes(8), kFails, MF_E_INVALIDREQUEST);
  push(S_OK, 0, sample);
  EXPECT_EQ(frameStatus(), static_cast<CaptureStatus>(MF_E_INVALIDREQUEST));
  sample->RemoveAllBuffers();
  push(S_OK, 0, sample);
  EXPECT_GT(frameStatus(), 0x80000000u);
}

TEST_F(WinCameraFrameCapturerTest, TheFrameBufferOnlyGrowsAndNeverFallsShortOfAPicture) {
  startReading();
  push(S_OK, 0, makeSample(Bytes(8), kFails));
  EXPECT_EQ(frame(), (Frame{CaptureOk, Bytes(8, 0xFF)})) << "no frame ever came";
  push({1, 1, 1, 1});
  EXPECT_EQ(frame(), (Frame{CaptureOk, {1, 1, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}));
  push(Bytes(16, 2));
  push(Bytes(8, 3));
  EXPECT_EQ(frame(16), (Frame{CaptureOk, {3, 3, 3, 0xFF, 3, 3, 3, 0xFF, 2, 2, 2, 0xFF, 2, 2, 2, 0xFF}}));
}

TEST_F(WinCameraFrameCapturerTest, AFrameThatMemoryCannotHoldEndsTheCapture) {
  startReading();
  push(Bytes(8, 1));
  arraysFail = true;
  push(Bytes(8, 4));
  EXPECT_EQ(frameStatus(), CaptureOk) << "there is a place for it";
  push(Bytes(16, 2));
  arraysFail = false;
  EXPECT_EQ(frameStatus(), CaptureFailed);
  EXPECT_EQ(capturer->stop(), CaptureFailed);

  startReading();
  push(Bytes(8, 3));
  EXPECT_EQ(frame(), (Frame{CaptureOk, {3, 3, 3, 0xFF, 3, 3, 3, 0xFF}})) << "the next run has a frame again";
}

TEST_F(WinCameraFrameCapturerTest, OnlyTheRemovalOfThisCameraEndsTheCapture) {
  startReading();
  push(Bytes(8, 1));
  const std::wstring own = L"\\\\?\\USB#vid_1#{e5323777}";
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"\\\\?\\USB#vid_2#{e5323777}");
  broadcast(DBT_DEVICEARRIVAL, own);
  EXPECT_EQ(frameStatus(), CaptureOk);

  broadcast(DBT_DEVICEREMOVEPENDING, own);
  EXPECT_EQ(frameStatus(), CaptureDeviceRemoved);
  push(Bytes(8, 1));
  EXPECT_EQ(frameStatus(), CaptureDeviceRemoved) << "a late sample brings no camera back";
  EXPECT_EQ(scriptedCapture().reads, 2);
}
