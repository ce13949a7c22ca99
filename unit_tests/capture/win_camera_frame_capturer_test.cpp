#include "capture/win_camera_frame_capturer.h"

#include <windows.h>
#include <dbt.h>

#include <QSemaphore>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "discovery/win_camera_component.h"
#include "unit_tests/capture/fake_reader.h"
#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/fault_rounds.h"

using Microsoft::WRL::ComPtr;

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr char kPath[] = "\\\\?\\usb#VID_1#{E5323777}";
const std::string kEndOfWatch = " UnregisterDeviceNotification DestroyWindow WM_CLOSE UnregisterClass";
const std::string kCleanUp = kEndOfWatch + " reader MFShutdown CoUninitialize";
constexpr HRESULT kInvalidated = static_cast<HRESULT>(0xC00D3EA2);
const auto kFails = [] { return E_FAIL; };

using Capturer = ComPtr<WinCameraFrameCapturer>;

void waitUntil(const std::function<bool()>& isSo) {
  for (int wait = 0; wait < 5000 && !isSo(); ++wait) Sleep(1);
  EXPECT_TRUE(isSo());
}

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
    EXPECT_EQ(scriptedCapture().sourcesOpen, 0) << "the camera would stay occupied";
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
    waitUntil([] { return scriptedCapture().reads != 0; });
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
  CaptureStatus frameStatus() {
    std::uint8_t* buffer = nullptr;
    const CaptureStatus status = capturer->getFrame(buffer, 5000);
    delete[] buffer;
    return status;
  }

  WinCameraComponent camera{{kPath, "", "", "", "", "", "", "", CameraType::kUsb}, 0};
  Capturer capturer;
};

}  // namespace

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

TEST_F(WinCameraFrameCapturerTest, TheRowOrderFollowsTheStrideAndAnotherFormatIsRefused) {
  for (const std::optional<int> stride :
       {std::optional(-8), std::optional(0), std::optional(8), std::optional<int>()}) {
    scriptedCapture().stride = stride;
    ASSERT_EQ(capturer->start(), CaptureOk);
    FrameFormat format;
    EXPECT_EQ(capturer->getFrameFormat(format), 0);
    EXPECT_EQ(format.topDown, stride != -8 && stride != 0);
    EXPECT_EQ(capturer->stop(), CaptureNoFrameYet);
  }
  scriptedCapture().subtype = MFVideoFormat_NV12;
  EXPECT_EQ(capturer->start(), CaptureInitFailed);
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

TEST_F(WinCameraFrameCapturerTest, ATickMakesTheConsumerWaitForARealFrame) {
  startReading();
  push(Bytes(8, 1));
  push(S_OK, MF_SOURCE_READERF_STREAMTICK, nullptr);
  const std::uint64_t before = fakeHostServices().ticks;
  EXPECT_EQ(frameStatus(), CaptureTimedOut);
  EXPECT_EQ(fakeHostServices().ticks - before, 5002u) << "the first reading, and 5001 ms from it on";
  EXPECT_EQ(scriptedCapture().reads, 3);
}

TEST_F(WinCameraFrameCapturerTest, TheFrameBufferOnlyGrowsAndNeverFallsShortOfAPicture) {
  startReading();
  push(S_OK, 0, makeSample(Bytes(8), kFails));
  EXPECT_EQ(frame(), (Frame{CaptureOk, Bytes(8, 0xFF)})) << "no frame ever came";
  push({1, 1, 1, 1});
  EXPECT_EQ(frame(), (Frame{CaptureOk, {1, 1, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}));
  push(Bytes(16, 2));
  push(Bytes(8, 3));
  push(S_OK, 0, makeSample(Bytes(8), kFails));
  EXPECT_EQ(frame(16), (Frame{CaptureOk, {3, 3, 3, 0xFF, 3, 3, 3, 0xFF, 2, 2, 2, 0xFF, 2, 2, 2, 0xFF}}));
}

TEST_F(WinCameraFrameCapturerTest, OnlyTheRemovalOfThisCameraEndsTheCapture) {
  startReading();
  push(Bytes(8, 1));
  const wchar_t* const own = L"\\\\?\\USB#vid_1#{e5323777}";
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"\\\\?\\USB#vid_2#{e5323777}");
  broadcast(DBT_DEVICEARRIVAL, own);
  EXPECT_EQ(frameStatus(), CaptureOk);

  broadcast(DBT_DEVICEREMOVEPENDING, own);
  EXPECT_EQ(frameStatus(), CaptureDeviceRemoved);
  push(Bytes(8, 1));
  EXPECT_EQ(frameStatus(), CaptureDeviceRemoved) << "a late sample brings no camera back";
  EXPECT_EQ(scriptedCapture().reads, 2);
}

// Every call into the system and every allocation of a whole capture fails in its turn, on the worker and in the
// callback, too: from the start over two frames, the second of which is larger, and the removal to the stop. Left out
// is what leaves `start` or `stop` waiting for good: COM or Media Foundation that does not come up, a quit message that
// is not taken.
TEST_F(WinCameraFrameCapturerTest, WhateverFailsIsReportedAndLeavesNothingBehindForTheNextStart) {
  // The statuses of start, two frames, what comes after the removal, and stop. H is an HRESULT, T something thrown.
  using Runs = std::set<std::string>;
  const Runs notSetUp = {"115 116 116 116 116"};
  const Runs notOpened = {"114 116 116 116 116", "115 116 116 116 116"};
  const Runs optional = {"0 0 0 38 38", "115 116 116 116 116"};
  const Runs badBuffer = {"0 H 0 38 38", "0 0 H 38 38", "0 H H H H", "0 0 H H H"};
  const std::map<std::string, Runs> expected = {
      {"", {"0 0 0 38 38"}},
      {"MFCreateAttributes", notOpened},
      {"SetGUID", notOpened},
      {"SetString", notOpened},
      {"MFCreateDeviceSource", notOpened},
      {"stride", optional},
      {"pixel aspect ratio", optional},
      {"ReadSample", {"0 1 1 1 1", "0 1 0 38 38", "0 0 1 38 38", "0 H H H H", "0 1 H H H", "0 0 1 1 1"}},
      {"GetBufferByIndex", badBuffer},
      {"GetCurrentLength", badBuffer},
      {"Lock", {"0 0 0 38 38", "0 1 H H H", "0 0 1 1 1"}},
      {"WideCharToMultiByte", {"0 0 0 0 0"}},
      {"new", {"T 116 116 116 116", "114 116 116 116 116", "0 0 0 0 0", "0 0 0 T 0"}},
      {"new[]", {"0 T 0 38 38", "0 0 T 38 38", "0 T 1 1 1", "0 0 T T 0"}},
      {"new[] (nothrow)", {"0 1 0 38 38", "0 0 1 38 38", "0 1 1 1 1", "0 0 1 1 1"}}};
  const Bytes frames[] = {Bytes(8, 1), Bytes(16, 1)};
  Capturer another = makeCapturer();
  FaultRounds rounds;
  rounds.forEach({Fault::kSystem, Fault::kMemory}, [&] {
    resetScriptedCapture();
    std::string run;
    const auto note = [&](auto call) {
      std::string status = "T";
      try {
        const CaptureStatus answered = call();
        const FaultPause pause;
        status = answered > 0x80000000u ? "H" : std::to_string(answered);
      } catch (const std::bad_alloc&) {
      }
      const FaultPause pause;
      run += (run.empty() ? "" : " ") + status;
    };
    rounds.attempt([&] {
      note([&] { return capturer->start(); });
      const bool started = run == "0";
      if (started) waitUntil([] { return scriptedCapture().reads != 0; });
      // The worker goes with a first read that fails, yet a driver may still call.
      if (started) waitUntil([] { return !scriptedCapture().readFailed || scriptedCapture().sessions == 0; });
      for (const Bytes& bytes : frames) {
        capturer->OnReadSample(S_OK, 0, 0, 0, makeSample(bytes).Get());
        note([&] { return frameStatus(); });
      }
      broadcast(DBT_DEVICEREMOVECOMPLETE, L"\\\\?\\USB#vid_1#{e5323777}");
      note([&] { return frameStatus(); });
      note([&] { return capturer->stop(); });
    });
    const auto runs = expected.find(rounds.name);
    EXPECT_THAT(runs == expected.end() ? notSetUp : runs->second, testing::Contains(run));
    // Until there is a source the camera could not be opened. A fault that lasts meets the watch, too.
    if (run.starts_with("11") && rounds.kind == Fault::kSystem) {
      EXPECT_EQ(run.starts_with("114"), !rounds.lasts && scriptedCapture().openedLink.empty());
    }
    const std::string withoutReader = kEndOfWatch + " MFShutdown CoUninitialize";
    EXPECT_THAT(scriptedCapture().cleanUp(), testing::AnyOf(kCleanUp, withoutReader, run[0] == 'T' ? "" : kCleanUp));
    expectNothingLeft();

    for (int next = 0; next < 2; ++next) {
      capturer.Swap(another);
      resetScriptedCapture();
      startReading();
      push(Bytes(8, 1));
      EXPECT_EQ(frameStatus(), CaptureOk);
      EXPECT_EQ(capturer->stop(), CaptureOk);
    }
    capturer = makeCapturer();
    EXPECT_EQ(blocksLeft(), 0);
  });
  EXPECT_THAT(rounds.names, testing::SizeIs(26)) << "every call had its turn, and every form of new";
}
