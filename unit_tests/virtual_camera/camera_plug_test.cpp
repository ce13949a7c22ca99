// Planted cameras that come and go, and their changes by several at once.

#include <windows.h>
#include <dbt.h>

#include <QImage>

#include <atomic>
#include <chrono>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/planter/device_broadcast.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "standalone/virtual_camera/planter/device_presence.h"
#include "unit_tests/virtual_camera/planted_camera_fixture.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A window that registered for the interface class of cameras, beside one that did not.
class Listener {
 public:
  Listener() {
    for (const HWND each : {window, bystander}) {
      SetWindowLongPtrW(each, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }
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
    DestroyWindow(bystander);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  // The next `count` devices that came (+) or went (-), as either window was told; fewer when they are late.
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
    if (message == WM_DEVICECHANGE && (wParam == DBT_DEVICEARRIVAL || wParam == DBT_DEVICEREMOVECOMPLETE)) {
      const std::wstring name = reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(lParam)->dbcc_name;
      if (name == L"probe") isHeard = true;
      if (name != L"probe") told.push_back((wParam == DBT_DEVICEARRIVAL ? L"+" : L"-") + name);
    }
    return DefWindowProcW(listener, message, wParam, lParam);
  }

  static inline std::vector<std::wstring> told;
  static inline bool isHeard = false;
  HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  HWND bystander = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
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

TEST_F(VirtualCamera, ItsTimeLineGoesOnWhateverTheStreamDoesUntilItIsPlantedAnew) {
  for (const char* ending : {R"({"kind":"end-of-stream","at":0})", R"({"kind":"first-read-fails"})", ""}) {
    SCOPED_TRACE(ending);
    plant(QByteArray(R"(,"faults":[{"kind":"removed","at":0.2},{"kind":"returns","at":0.6})") + (*ending ? "," : "") +
          ending + "]");
    ASSERT_EQ(open(), S_OK);
    start();
    if (!*ending) source->Stop();
    for (const UINT32 count : {0U, 1U}) {
      for (const auto end = Clock::now() + 2s; listed() != count && Clock::now() < end;)
        std::this_thread::sleep_for(5ms);
      EXPECT_EQ(listed(), count);
    }
  }

  plant(R"(,"faults":[{"kind":"removed","at":0.2}])");
  ASSERT_EQ(open(), S_OK);
  start();
  plant("");
  ASSERT_EQ(open(), S_OK);
  plant("");
  start();
  stream->RequestSample(nullptr);
  EXPECT_FALSE(nextEvent(stream.Get(), 400ms)) << "the camera that this stream had is gone";
  EXPECT_EQ(listed(), 1U) << "the time line of an earlier camera acted on this one";
}

TEST_F(VirtualCamera, IsListedWithoutALookAtItsImages) {
  const QString image = folder.filePath(QStringLiteral("a.png"));
  ASSERT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(image));
  plant(R"(,"picture":{"kind":"image","file":"a.png"})");
  ASSERT_TRUE(QFile::remove(image));
  EXPECT_EQ(listed(), 1U);
}

bool keyExists(const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

TEST_F(VirtualCamera, IsChangedByOneAtATime) {
  plant("");
  const auto count = [this] {
    for (int i = 0; i < 300; ++i) countOpen(link);
  };
  std::thread counter(count);
  count();
  counter.join();
  EXPECT_EQ(openCount(link), 600);

  std::atomic<bool> isOver = false;
  std::thread user([&] {
    while (!isOver) {
      for (const bool pluggedIn : {false, true}) static_cast<void>(setPluggedIn(link, pluggedIn));
    }
  });
  for (int times = 0; times < 20; ++times) {
    plant("");
    EXPECT_EQ(unplantCameras(), QString());
    EXPECT_FALSE(keyExists(interfaceKey(link.toStdWString()))) << times;
  }
  isOver = true;
  user.join();
  EXPECT_THROW(countOpen(link), std::system_error);
  EXPECT_FALSE(keyExists(kPlantRecordKey));
}

}  // namespace
