// The capture's threads meet at random moments: whoever starts and stops it, the reader's callback, the system's
// broadcast, and whoever waits for frames.

#include <windows.h>
#include <dbt.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "capture/win_camera_frame_capturer.h"
#include "discovery/win_camera_component.h"
#include "unit_tests/capture/fake_reader.h"
#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/race_rounds.h"

using Microsoft::WRL::ComPtr;
using namespace std::chrono_literals;

namespace {

class CaptureRaceTest : public testing::Test {
 protected:
  CaptureRaceTest() {
    resetFakeHostServices();
    resetScriptedCapture();
    fakeHostServices().ticksPerReading = 1;
    *capturer.GetAddressOf() = new WinCameraFrameCapturer(&camera);  // born with one reference
  }
  ~CaptureRaceTest() override {
    EXPECT_EQ(capturer->stop(), CaptureNotRunning);
    EXPECT_EQ(fakeHostServices().threadsWaitedFor, fakeHostServices().threadsCreated);
    EXPECT_EQ(fakeComObjects, 0);
    EXPECT_EQ(scriptedCapture().notifications, 0);
    EXPECT_EQ(scriptedCapture().sessions, 0);
    EXPECT_EQ(capturer->AddRef(), 2u);
    capturer->Release();
  }

  CaptureStatus frameStatus() {
    std::uint8_t* buffer = nullptr;
    const CaptureStatus status = capturer->getFrame(buffer, 100);
    delete[] buffer;
    return status;
  }
  /// Delivers frames on a thread of its own until told to end.
  std::thread deliverFrames(std::atomic<bool>& end) {
    return std::thread([this, &end] {
      const std::vector<std::uint8_t> frames[] = {std::vector<std::uint8_t>(8, 1), std::vector<std::uint8_t>(16, 2)};
      for (std::size_t number = 0; !end; ++number) {
        capturer->OnReadSample(S_OK, 0, 0, 0, makeSample(frames[number % 2]).Get());
      }
    });
  }

  WinCameraComponent camera{{"\\\\?\\usb#vid_1", "", "", "", "", "", "", "", CameraType::kUsb}, 0};
  ComPtr<WinCameraFrameCapturer> capturer;
  RaceRounds rounds;
};

TEST_F(CaptureRaceTest, AStopMeetsAStart) {
  rounds.forEach([this] {
    std::atomic<bool> returned = false;
    CaptureStatus started = CaptureFailed;
    std::thread starter([&] {
      started = capturer->start();
      returned = true;
    });
    CaptureStatus stopped = CaptureNotRunning;
    while (stopped == CaptureNotRunning) {
      rounds.pause(100us);
      stopped = capturer->stop();
    }
    EXPECT_EQ(stopped, CaptureNoFrameYet);
    for (int wait = 0; wait < 5000 && !returned; ++wait) Sleep(1);
    ASSERT_TRUE(returned) << "the start hangs";
    starter.join();
    EXPECT_EQ(started, CaptureOk);
  });
}

TEST_F(CaptureRaceTest, ARemovalMeetsTheFrames) {
  rounds.forEach([this] {
    ASSERT_EQ(capturer->start(), CaptureOk);
    std::atomic<bool> end = false;
    std::thread reader = deliverFrames(end);
    std::thread system([this] {
      rounds.pause(1ms);
      broadcast(DBT_DEVICEREMOVECOMPLETE, L"\\\\?\\USB#VID_1");
    });
    CaptureStatus last = CaptureOk;
    while (last == CaptureOk || last == CaptureTimedOut) last = frameStatus();
    EXPECT_EQ(last, CaptureDeviceRemoved);
    system.join();
    end = true;
    reader.join();
    EXPECT_EQ(frameStatus(), CaptureDeviceRemoved) << "a late sample brings no camera back";
    EXPECT_EQ(capturer->stop(), CaptureDeviceRemoved);
  });
}

TEST_F(CaptureRaceTest, AStopMeetsTheFramesAndNoneIsTakenAfterIt) {
  rounds.forEach([this] {
    ASSERT_EQ(capturer->start(), CaptureOk);
    std::atomic<bool> end = false;
    std::thread reader = deliverFrames(end);
    rounds.pause(1ms);
    const CaptureStatus last = capturer->stop();
    EXPECT_TRUE(last == CaptureOk || last == CaptureNoFrameYet) << last;
    const int reads = scriptedCapture().reads;
    EXPECT_EQ(frameStatus(), CaptureNotRunning);
    std::this_thread::yield();
    EXPECT_EQ(scriptedCapture().reads, reads);
    end = true;
    reader.join();
  });
}

TEST_F(CaptureRaceTest, TwoCamerasAreCapturedInTurn) {
  ComPtr<WinCameraFrameCapturer> second;
  *second.GetAddressOf() = new WinCameraFrameCapturer(&camera);
  std::atomic<bool> end = false;
  std::thread reader = deliverFrames(end);
  bool isSecond = false;
  rounds.forEach([&] {
    isSecond = !isSecond;
    WinCameraFrameCapturer& one = *(isSecond ? second : capturer).Get();
    ASSERT_EQ(one.start(), CaptureOk);
    rounds.pause(1ms);
    const CaptureStatus last = one.stop();
    EXPECT_TRUE(last == CaptureNoFrameYet || (!isSecond && last == CaptureOk)) << last;
  });
  end = true;
  reader.join();
}

}  // namespace
