#include "module/host_services.h"

#include <array>
#include <atomic>
#include <regex>
#include <thread>
#include <vector>

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <windows.h>

namespace {

struct Seen {
  std::atomic<std::uint32_t> threadId = 0;
  std::wstring description;
};

void look(void* argument) {
  auto* seen = static_cast<Seen*>(argument);
  using GetDescription = HRESULT(WINAPI*)(HANDLE, PWSTR*);
  const auto getDescription = reinterpret_cast<GetDescription>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetThreadDescription")));
  PWSTR text = nullptr;
  if (getDescription != nullptr && SUCCEEDED(getDescription(GetCurrentThread(), &text))) {
    seen->description = text;
    LocalFree(text);
  }
  seen->threadId = GetCurrentThreadId();
}

TEST(ThreadServiceTest, RunsTheEntryOnANamedThreadAndWaitsForItsEnd) {
  Seen seen;
  std::uint64_t handle = 0;
  get_thread()->create(&handle, 0, &look, &seen, "WinCameraFrameCapturer");
  ASSERT_NE(handle, 0U);
  get_thread()->wait(handle);
  EXPECT_NE(seen.threadId, 0U);
  EXPECT_NE(seen.threadId, GetCurrentThreadId());
  EXPECT_EQ(seen.description, L"WinCameraFrameCapturer");
  DWORD flags = 0;
  EXPECT_FALSE(GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags)) << "the handle is still open";
}

TEST(ThreadServiceTest, TellsEachCallerItsOwnThread) {
  std::vector<std::thread> callers;
  std::atomic<int> wrong = 0;
  for (int i = 0; i < 4; ++i) {
    callers.emplace_back([&wrong] {
      for (int round = 0; round < 50; ++round) {
        Seen seen;
        std::uint64_t handle = 0;
        get_thread()->create(&handle, 0, &look, &seen, nullptr);
        const std::uint32_t told = get_thread()->lastThreadId;
        get_thread()->wait(handle);
        wrong += told != seen.threadId;
      }
    });
  }
  for (std::thread& caller : callers) {
    caller.join();
  }
  EXPECT_EQ(wrong, 0);
}

TEST(ThreadServiceTest, SetsPrioritiesInFiveSteps) {
  std::uint64_t handle = 0;
  get_thread()->create(
      &handle, 0, [](void*) { Sleep(200); }, nullptr, nullptr);
  constexpr std::array<std::pair<int, int>, 4> kSteps = {{{-7, THREAD_PRIORITY_LOWEST},
                                                          {3, THREAD_PRIORITY_NORMAL},
                                                          {4, THREAD_PRIORITY_ABOVE_NORMAL},
                                                          {9, THREAD_PRIORITY_HIGHEST}}};
  for (const auto& [value, priority] : kSteps) {
    get_thread()->setPriority(handle, value);
    EXPECT_EQ(GetThreadPriority(reinterpret_cast<HANDLE>(handle)), priority) << value;
  }
  get_thread()->wait(handle);
}

TEST(TimerServiceTest, CountsMillisecondsAcrossTheWrap) {
  EXPECT_DOUBLE_EQ(get_timer()->elapsedSeconds(1000, 3500), 2.5);
  EXPECT_DOUBLE_EQ(get_timer()->elapsedSeconds(7, 7), 0);
  EXPECT_DOUBLE_EQ(get_timer()->elapsedSeconds(0xFFFFFF00U, 0x100), 0.512);
  const auto start = static_cast<std::uint32_t>(get_timer()->now());
  get_timer()->sleep(50);
  const double slept = get_timer()->elapsedSeconds(start, static_cast<std::uint32_t>(get_timer()->now()));
  // The tick is coarse.
  EXPECT_GT(slept, 0.03);
  EXPECT_LT(slept, 5);
}

TEST(StringHandlerTest, MakesPathsOfOneDeviceEqual) {
  const auto device = [](std::string path) {
    get_string_handler()->normaliseDevicePath(path);
    return path;
  };
  const auto broadcast = [](std::string path) {
    get_string_handler()->normaliseBroadcastPath(path);
    return path;
  };
  const std::string link = R"(\\?\usb#vid_046d&pid_0825#5&2c&0&1#{6994ad05-93ef-11d0-a3cc-00a0c9223196}\global)";
  for (const char* form : {R"(\\?\USB#VID_046D&PID_0825#5&2C&0&1#{6994AD05-93EF-11D0-A3CC-00A0C9223196}\GLOBAL)",
                           R"(\??\USB#VID_046D&PID_0825#5&2c&0&1#{6994ad05-93ef-11d0-a3cc-00a0c9223196}\global)",
                           R"(\\.\usb#vid_046d&pid_0825#5&2c&0&1#{6994ad05-93ef-11d0-a3cc-00a0c9223196}\Global)"}) {
    EXPECT_EQ(device(form), link);
    EXPECT_EQ(broadcast(form), link);
  }
  EXPECT_EQ(device("K\xc3\x84MERA"), device("k\xc3\xa4mera"));
  EXPECT_NE(device(R"(\\?\usb#1)"), device(R"(\\?\usb#2)"));
  EXPECT_EQ(device("\xff\xfe"
                   "A"),
            "\xff\xfe"
            "A")
      << "no text is left as it is";
  EXPECT_EQ(device(""), "");
}

TEST(StringHandlerTest, DerivesStableIdentifiers) {
  const auto derive = [](const std::string& text) {
    std::string identifier = "old";
    get_string_handler()->deriveIdentifier(text, identifier);
    return identifier;
  };
  EXPECT_EQ(derive("HD Webcam_0"), derive("HD Webcam_0"));
  EXPECT_NE(derive("HD Webcam_0"), derive("HD Webcam_1"));
  EXPECT_NE(derive(std::string("a\0b", 3)), derive("a")) << "a zero ends no text";
  for (const char* text : {"", "HD Webcam_0"}) {
    EXPECT_TRUE(std::regex_match(derive(text), std::regex("[0-9A-F]{32}"))) << derive(text);
  }
}

TEST(StringHandlerTest, CopiesOnlyWhatFits) {
  std::array<char, 5> buffer{};
  const auto copy = [&](const char* text, std::size_t length) {
    buffer.fill('x');
    return get_string_handler()->copyBounded(buffer.data(), 4, text, length);
  };
  EXPECT_NE(copy("abcdef", 3), 0);
  EXPECT_STREQ(buffer.data(), "abc");
  EXPECT_NE(copy("", 0), 0);
  EXPECT_STREQ(buffer.data(), "");
  EXPECT_EQ(copy("abcdef", 4), 0);
  EXPECT_EQ(copy(nullptr, 1), 0);
  EXPECT_EQ(buffer[4], 'x');
  EXPECT_EQ(get_string_handler()->copyBounded(nullptr, 4, "a", 1), 0);
  EXPECT_EQ(get_string_handler()->copyBounded(buffer.data(), 0, "", 0), 0);
}

TEST(StringHandlerTest, MeasuresAtMostTheMaximum) {
  EXPECT_EQ(get_string_handler()->boundedLength("abc", 261), 3U);
  EXPECT_EQ(get_string_handler()->boundedLength("abc", 2), 2U);
  EXPECT_EQ(get_string_handler()->boundedLength("", 261), 0U);
}

TEST(ModuleServiceTest, LoadsSystemLibraries) {
  void* library = get_module()->load("shcore.dll", 1);
  EXPECT_NE(library, nullptr);
  get_module()->unload(library);
  EXPECT_EQ(get_module()->load("no_such_library.dll", 1), nullptr);
  get_module()->unload(nullptr);
}

TEST(TemporaryPathTest, IsAFolder) {
  EXPECT_TRUE(QFileInfo(QString::fromUtf8(get_temporary_path())).isDir()) << get_temporary_path();
}

}  // namespace
