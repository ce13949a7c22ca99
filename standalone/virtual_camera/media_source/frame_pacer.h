#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that calls back at each frame time. Frame times are counted from the start, so that they do not drift; one
/// that passes while the callback is still busy, or while a late frame is waited for, is left out. start and stop are
/// called by one thread at a time, never by the callback.
class FramePacer {
 public:
  /// Gets the number of the frame and its time in seconds since the start.
  using Callback = std::function<void(quint64 frameNumber, double seconds)>;
  /// Says by how many seconds a frame is late. Called on the pacer's thread.
  using Lateness = std::function<double(quint64 frameNumber, double seconds)>;

  FramePacer() = default;
  ~FramePacer() { stop(); }
  FramePacer(const FramePacer&) = delete;
  FramePacer& operator=(const FramePacer&) = delete;

  /// Starts anew, from frame 0 on.
  void start(double framesPerSecond, Callback callback, Lateness lateness);

  /// Returns once the callback is not and will not be called. Harmless when not started.
  void stop();

 private:
  void run(double framesPerSecond, const Callback& callback, const Lateness& lateness);

  std::thread thread;
  std::mutex mutex;
  std::condition_variable wake;
  bool stopping = false;
};
