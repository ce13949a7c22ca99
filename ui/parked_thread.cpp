#include "ui/parked_thread.h"

#include <QCoreApplication>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <mutex>

struct ParkedUserInterfaceThread::Meeting {
  std::mutex mutex;
  std::condition_variable changed;
  bool parked = false;
  bool over = false;

  void waitFor(std::unique_lock<std::mutex>& lock, const bool& condition) {
    changed.wait_for(lock, std::chrono::milliseconds(500), [&condition] { return condition; });
  }

  void park() {
    std::unique_lock lock(mutex);
    parked = true;
    changed.notify_all();
    waitFor(lock, over);
  }
};

ParkedUserInterfaceThread::ParkedUserInterfaceThread() {
  QCoreApplication* const application = QCoreApplication::instance();
  if (application->thread() == QThread::currentThread()) return;
  // Shared, since a thread that comes late still finds that the meeting is over.
  meeting = std::make_shared<Meeting>();
  QMetaObject::invokeMethod(
      application, [shared = meeting] { shared->park(); }, Qt::QueuedConnection);
  std::unique_lock lock(meeting->mutex);
  meeting->waitFor(lock, meeting->parked);
}

ParkedUserInterfaceThread::~ParkedUserInterfaceThread() {
  if (!meeting) return;
  const std::lock_guard lock(meeting->mutex);
  meeting->over = true;
  meeting->changed.notify_all();
}
