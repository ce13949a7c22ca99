#include "ui/parked_thread.h"

#include <QCoreApplication>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <mutex>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

constexpr std::chrono::milliseconds kLongestWait(500);

/// Lets the window procedures of this thread answer the messages that other threads wait for, and no others.
void answerSentMessages() {
#ifdef _WIN32
  MSG message;
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
#endif
}

}  // namespace

struct ParkedUserInterfaceThread::Meeting {
  std::mutex mutex;
  std::condition_variable changed;
  bool parked = false;
  bool over = false;

  bool waitUntilParked() {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, kLongestWait, [this] { return parked; });
  }

  void park() {
    std::unique_lock lock(mutex);
    parked = true;
    changed.notify_all();
    while (!changed.wait_for(lock, std::chrono::milliseconds(1), [this] { return over; })) {
      lock.unlock();
      answerSentMessages();
      lock.lock();
    }
  }

  void finish() {
    const std::lock_guard lock(mutex);
    over = true;
    changed.notify_all();
  }
};

ParkedUserInterfaceThread::ParkedUserInterfaceThread() {
  QCoreApplication* const application = QCoreApplication::instance();
  if (application->thread() == QThread::currentThread()) return;
  // Shared, since a thread that comes late still finds that the meeting is over.
  meeting = std::make_shared<Meeting>();
  QMetaObject::invokeMethod(
      application, [shared = meeting] { shared->park(); }, Qt::QueuedConnection);
  still = meeting->waitUntilParked();
}

ParkedUserInterfaceThread::~ParkedUserInterfaceThread() {
  if (meeting) meeting->finish();
}
