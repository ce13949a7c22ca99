#include "standalone/virtual_camera/media_source/frame_pacer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

void FramePacer::start(double framesPerSecond, Callback callback, Lateness lateness) {
  stop();
  stopping = false;
  thread = std::thread([this, framesPerSecond, call = std::move(callback), late = std::move(lateness)] {
    run(framesPerSecond, call, late);
  });
}

void FramePacer::stop() {
  if (!thread.joinable()) return;
  {
    const std::lock_guard lock(mutex);
    stopping = true;
  }
  wake.notify_all();
  thread.join();
}

void FramePacer::run(double framesPerSecond, const Callback& callback, const Lateness& lateness) {
  using Clock = std::chrono::steady_clock;
  using Seconds = std::chrono::duration<double>;
  const Clock::time_point start = Clock::now();

  std::unique_lock lock(mutex);
  for (quint64 number = 0;;) {
    const Seconds due(static_cast<double>(number) / framesPerSecond);
    const auto wait = std::chrono::duration_cast<Clock::duration>(due + Seconds(lateness(number, due.count())));
    if (wake.wait_until(lock, start + wait, [this] { return stopping; })) return;
    lock.unlock();
    callback(number, due.count());
    lock.lock();
    const auto current = static_cast<quint64>(std::floor(Seconds(Clock::now() - start).count() * framesPerSecond));
    number = std::max(number + 1, current);
  }
}
