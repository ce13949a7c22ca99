#pragma once

#include <atomic>
#include <thread>

/// What all threads of this program have used of the processor so far, in milliseconds.
[[nodiscard]] double processorMilliseconds();

/// The memory that this program has for itself, in bytes.
[[nodiscard]] double privateBytes();

/// Watches how much memory the program has at most.
class PeakWatch {
 public:
  PeakWatch();
  ~PeakWatch();
  PeakWatch(const PeakWatch&) = delete;
  PeakWatch& operator=(const PeakWatch&) = delete;

  /// In bytes.
  [[nodiscard]] double peak() const { return most; }

 private:
  std::atomic<double> most = 0;
  std::atomic<bool> ending = false;
  std::thread watcher;
};
