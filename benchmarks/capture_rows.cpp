#include <windows.h>
#include <dbt.h>

#include <cstddef>
#include <cstring>
#include <future>
#include <memory>
#include <stdexcept>

#include "benchmarks/bare_reader.h"
#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/planting.h"
#include "benchmarks/rows.h"
#include "capture/buffer_lock.h"
#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"

namespace {

constexpr int kRounds = 15;
/// When the camera falls silent, and how long after its first frame it is stopped.
constexpr double kSilentAfter = 0.2;
constexpr DWORD kSilenceMs = 250;

/// What starting and stopping a camera took, time by time.
struct StartsAndStops {
  Rounds starts;
  Rounds stops;
};

void runModule(CameraFrameCapturer& capturer, StartsAndStops& taken) {
  taken.starts.push_back(millisecondsOf([&] {
    std::uint8_t* frame = nullptr;
    if (capturer.start() != CaptureOk || capturer.getFrame(frame, 5000) != CaptureOk) {
      throw std::runtime_error("the camera gives the module no frame");
    }
    delete[] frame;
  }));
  Sleep(kSilenceMs);
  taken.stops.push_back(millisecondsOf([&] { static_cast<void>(capturer.stop()); }));
}

std::unique_ptr<std::uint8_t[]> copyOf(IMFSample& sample) {
  Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
  DWORD length = 0;
  if (FAILED(sample.GetBufferByIndex(0, &buffer)) || FAILED(buffer->GetCurrentLength(&length))) return nullptr;
  const BufferLock lock(buffer.Get());
  if (!lock.data()) return nullptr;
  std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[length]);
  std::memcpy(copy.get(), lock.data(), length);
  return copy;
}

/// A hidden window that is told of each device that goes.
class BareWindow {
 public:
  BareWindow() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassExW(&windowClass);
    window = CreateWindowExW(0, kClass, L"", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, nullptr, nullptr, windowClass.hInstance, nullptr);
    DEV_BROADCAST_DEVICEINTERFACE_W filter = {};
    filter.dbcc_size = sizeof(filter);
    filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
    notification = RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_ALL_INTERFACE_CLASSES);
  }
  ~BareWindow() {
    UnregisterDeviceNotification(notification);
    DestroyWindow(window);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
  }
  BareWindow(const BareWindow&) = delete;
  BareWindow& operator=(const BareWindow&) = delete;

 private:
  static constexpr wchar_t kClass[] = L"BareWindow";
  HWND window = nullptr;
  HDEVNOTIFY notification = nullptr;
};

enum class Window { kNone, kHidden };

void runBare(const std::string& devicePath, Window window, StartsAndStops& taken) {
  std::promise<std::unique_ptr<std::uint8_t[]>> first;
  bool isFirst = true;
  std::unique_ptr<BareReader> reader;
  std::unique_ptr<BareWindow> hidden;
  taken.starts.push_back(millisecondsOf([&] {
    reader = std::make_unique<BareReader>(devicePath, [&](IMFSample& sample) {
      if (std::exchange(isFirst, false)) first.set_value(copyOf(sample));
    });
    if (window == Window::kHidden) hidden = std::make_unique<BareWindow>();
    if (!first.get_future().get()) throw std::runtime_error("the camera gives a bare reader no frame");
  }));
  Sleep(kSilenceMs);
  taken.stops.push_back(millisecondsOf([&] {
    hidden.reset();
    reader.reset();
  }));
}

}  // namespace

void compareCaptures(Comparison& comparison) {
  const Row rows[] = {{"start to the first frame", "a bare asynchronous reader's first frame", 1.10},
                      {"start to the first frame", "the same with a window that is told of removals", 0},
                      {"stop of a capture", "the end of a bare reader", 1.20},
                      {"stop of a capture", "the same with a window that is told of removals", 0}};
  if (!comparison.wants(rows[0].work) && !comparison.wants(rows[2].work)) return;

  const FoundCamera camera(silentCamera(kSilentAfter, QSize(1280, 720)));
  CameraFrameCapturer& capturer = *camera.component().getFrameCapturer();
  StartsAndStops module;
  StartsAndStops bare;
  StartsAndStops withWindow;
  const auto all = [&](int rounds) {
    alternate(
        rounds, [&] { runModule(capturer, module); },
        [&] {
          runBare(camera.path(), Window::kNone, bare);
          runBare(camera.path(), Window::kHidden, withWindow);
        });
  };
  all(1);
  module = bare = withWindow = {};
  all(kRounds);
  const Rounds* const comparisons[] = {&bare.starts, &withWindow.starts, &bare.stops, &withWindow.stops};
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    if (comparison.wants(rows[i].work))
      comparison.record(rows[i], i < 2 ? module.starts : module.stops, *comparisons[i]);
  }
}
