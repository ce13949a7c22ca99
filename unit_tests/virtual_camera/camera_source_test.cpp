// What a planted camera's frames and faults are to a program that opened it.

#include <windows.h>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <sddl.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/description/stream_state.h"
#include "standalone/virtual_camera/media_source/sample_marks.h"
#include "standalone/virtual_camera/pictures/test_pattern.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "unit_tests/virtual_camera/planted_camera_fixture.h"

namespace {

using namespace std::chrono_literals;

// What a frame of 64 x 64 pixels takes.
constexpr DWORD kFrameBytes = 64 * 64 * 4;

TEST_F(VirtualCamera, AnswersEachRequestWithAFrameAndItsToken) {
  struct Case {
    const char* form;
    DWORD first;  // the first four bytes: red, or blue from the other end
    DWORD bytes = kFrameBytes;
  };
  for (const auto& [form, first, bytes] : {Case{R"("stride":"positive")", 0x00FF0000},
                                           {R"("stride":"negative")", 0x000000FF},
                                           // 82 bright, 90 and 240 its colour differences.
                                           {R"("format":"yuy2")", 0xF0525A52, kFrameBytes / 2},
                                           {R"("format":"nv12")", 0x52525252, kFrameBytes * 3 / 8}}) {
    plant(QByteArray(",") + form);
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
        ASSERT_TRUE(pixels && pixels->size() * sizeof(DWORD) == bytes);
        EXPECT_EQ(pixels->front(), first);
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

TEST_F(VirtualCamera, ItsFramesShowWhatItsFaultsSay) {
  using Frame = std::optional<std::vector<DWORD>>;
  constexpr QSize kSize(64, 64);
  const auto bytesOf = [](const QImage& image) {
    std::vector<DWORD> pixels;
    for (int i = 0; i < 64 * 64; ++i) pixels.push_back(image.pixel(i % 64, i / 64) & 0x00FFFFFF);
    return pixels;
  };
  // A frame at the beginning and one in the middle of the time line.
  const auto framesWith = [this](const QByteArray& fault) {
    plant(R"(,"faults":[)" + fault + "]");
    EXPECT_EQ(open(), S_OK);
    start();
    const Frame first = pixelsOf(requestSample().Get());
    std::this_thread::sleep_for(500ms);
    return std::pair(first, pixelsOf(requestSample().Get()));
  };
  TestPattern scene(kSize);
  const Frame frozen = framesWith(R"({"kind":"frozen","at":0.2})").second;
  EXPECT_EQ(frozen, bytesOf(scene.frameAt(10, 0.2)));
  EXPECT_NE(frozen, bytesOf(scene.frameAt(25, 0.5))) << "nothing moves in the scene";

  const auto [covered, coveredLater] = framesWith(R"({"kind":"covered","at":0})");
  ASSERT_TRUE(covered && coveredLater);
  for (const DWORD pixel : *covered) ASSERT_LT(qGray(pixel), 40);
  EXPECT_NE(covered, coveredLater) << "the noise stands still";

  plant(R"(,"faults":[{"kind":"dropped","at":0,"share":0.5}])");
  ASSERT_EQ(open(), S_OK);
  start();
  const std::vector<Fault> dropped{{.kind = FaultKind::kDropped, .share = 0.5}};
  for (int frames = 0; frames < 20; ++frames) {
    LONGLONG time = 0;
    requestSample()->GetSampleTime(&time);
    const double number = std::round(static_cast<double>(time) / 1e7 * 50);
    EXPECT_EQ(streamStateAt(dropped, static_cast<quint64>(number), 0), StreamState{}) << number;
  }
}

TEST_F(VirtualCamera, OpensAndStopsAsItsFaultsHaveIt) {
  plant(
      R"(,"faults":[{"kind":"busy","times":2},{"kind":"slow-open","seconds":0.3},{"kind":"slow-stop","seconds":0.6}])");
  for (const HRESULT status : {HRESULT_FROM_WIN32(ERROR_BUSY), HRESULT_FROM_WIN32(ERROR_BUSY), S_OK}) {
    const auto begin = Clock::now();
    ASSERT_EQ(open(), status);
    EXPECT_GE(Clock::now() - begin, 290ms);
  }
  start();
  const auto begin = Clock::now();
  std::atomic<bool> isStopped = false;
  std::thread stopper([&] {
    source->Stop();
    isStopped = true;
  });
  std::this_thread::sleep_for(150ms);
  DWORD characteristics = 0;
  EXPECT_EQ(source->GetCharacteristics(&characteristics), S_OK);
  EXPECT_FALSE(isStopped) << "the other call waited";
  stopper.join();
  source->Shutdown();
  EXPECT_GE(Clock::now() - begin, 590ms);
  EXPECT_LT(Clock::now() - begin, 1190ms) << "only what runs is slow to stop";
  plant(R"(,"faults":[{"kind":"no-open"}])");
  EXPECT_EQ(open(), E_ACCESSDENIED);
}

TEST_F(VirtualCamera, AnAttemptToOpenThatCannotBeCountedFails) {
  plant("");
  HKEY key = nullptr;
  const std::wstring path = interfaceControlKey(link.toStdWString());
  ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, WRITE_DAC, &key), ERROR_SUCCESS);
  for (const auto& [rights, status] :
       {std::pair{L"D:(A;;KR;;;WD)(A;;WD;;;WD)", E_ACCESSDENIED}, {L"D:(A;;KA;;;WD)", S_OK}}) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr));
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
    EXPECT_EQ(open(), status);
  }
  RegCloseKey(key);
}

}  // namespace
