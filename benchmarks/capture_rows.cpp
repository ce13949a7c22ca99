#include <windows.h>
#include <dbt.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>

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

void runBare(const std::string& devicePath, StartsAndStops& taken) {
  std::promise<std::unique_ptr<std::uint8_t[]>> first;
  bool isFirst = true;
  std::unique_ptr<BareReader> reader;
  taken.starts.push_back(millisecondsOf([&] {
    reader = std::make_unique<BareReader>(devicePath, [&](IMFSample& sample) {
      if (std::exchange(isFirst, false)) first.set_value(copyOf(sample));
    });
    reader->read();
    if (!first.get_future().get()) throw std::runtime_error("the camera gives a bare reader no frame");
  }));
  Sleep(kSilenceMs);
  taken.stops.push_back(millisecondsOf([&] { reader.reset(); }));
}

/// The same on a thread of its own, which has a window; whoever waits for it looks again and again.
void runBareThread(const std::string& devicePath, StartsAndStops& taken) {
  std::atomic<bool> isOpen = false;
  std::unique_ptr<std::uint8_t[]> frame;
  std::atomic<bool> hasFrame = false;
  std::promise<void> end;
  std::thread thread;
  taken.starts.push_back(millisecondsOf([&] {
    thread = std::thread([&] {
      BareReader reader(devicePath, [&](IMFSample& sample) {
        if (hasFrame) return;
        frame = copyOf(sample);
        hasFrame = true;
      });
      const BareWindow window;
      isOpen = true;
      reader.read();
      end.get_future().wait();
    });
    while (!isOpen) Sleep(0);
    while (!hasFrame) static_cast<void>(GetTickCount64());
  }));
  Sleep(kSilenceMs);
  taken.stops.push_back(millisecondsOf([&] {
    end.set_value();
    thread.join();
  }));
}

}  // namespace

void compareCaptures(Comparison& comparison) {
  const Row rows[] = {{"start to the first frame", "a bare asynchronous reader's first frame", 1.10},
                      {"start to the first frame", "the same on a thread with a window, awaited busily", 0},
                      {"stop of a capture", "the end of a bare reader", 1.20},
                      {"stop of a capture", "the same on a thread with a window, awaited busily", 0}};
  if (!comparison.wants(rows[0].work) && !comparison.wants(rows[2].work)) return;

  const FoundCamera camera(silentCamera(kSilentAfter, QSize(1280, 720)));
  CameraFrameCapturer& capturer = *camera.component().getFrameCapturer();
  StartsAndStops module;
  StartsAndStops bare;
  StartsAndStops thread;
  const auto all = [&](int rounds) {
    alternate(
        rounds, [&] { runModule(capturer, module); },
        [&] {
          runBare(camera.path(), bare);
          runBareThread(camera.path(), thread);
        });
  };
  all(1);
  module = bare = thread = {};
  all(kRounds);
  const Rounds* const comparisons[] = {&bare.starts, &thread.starts, &bare.stops, &thread.stops};
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    if (comparison.wants(rows[i].work))
      comparison.record(rows[i], i < 2 ? module.starts : module.stops, *comparisons[i]);
  }
}
