#include "benchmarks/process_figures.h"

#include <windows.h>
#include <psapi.h>

#include <algorithm>
#include <chrono>

namespace {

double milliseconds(const FILETIME& time) {
  constexpr double kUnits = 1e4;  // of 100 ns
  return static_cast<double>(ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart) / kUnits;
}

}  // namespace

double processorMilliseconds() {
  FILETIME created{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return milliseconds(kernel) + milliseconds(user);
}

double privateBytes() {
  // Wine leaves PrivateUsage at 0; this is the same figure.
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
  return static_cast<double>(counters.PagefileUsage);
}

PeakWatch::PeakWatch()
    : watcher([this] {
        while (!ending) {
          most = std::max<double>(most, privateBytes());
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
      }) {}

PeakWatch::~PeakWatch() {
  ending = true;
  watcher.join();
}
