#include "standalone/virtual_camera/media_source/plug_time_line.h"

#include <QHash>
#include <QtDebug>

#include <chrono>
#include <mutex>
#include <thread>

#include "standalone/virtual_camera/media_source/detached_errand.h"
#include "standalone/virtual_camera/planter/device_broadcast.h"
#include "standalone/virtual_camera/planter/device_presence.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr wchar_t kAnotherDevice[] = L"\\\\?\\usb#vid_0ddd&pid_0001#another#{e5323777-f976-4f5b-9b55-b94699c46e44}";

std::mutex mutex;

// Counts each camera's time lines; the last one is the one that goes on. Under `mutex`.
quint64& newestLine(const QString& symbolicLink) {
  static QHash<QString, quint64> lines;
  return lines[symbolicLink];
}

quint64 beginLine(const QString& symbolicLink) {
  const std::lock_guard lock(mutex);
  return ++newestLine(symbolicLink);
}

bool goesOn(const QString& symbolicLink, quint64 line) {
  const std::lock_guard lock(mutex);
  return newestLine(symbolicLink) == line;
}

void warn(const QString& error) {
  if (!error.isEmpty()) qWarning("%s", qPrintable(error));
}

}  // namespace

void startPlugTimeLine(const QString& symbolicLink, int arrival, const std::vector<Fault>& faults) {
  const quint64 line = beginLine(symbolicLink);
  runDetached([symbolicLink, arrival, faults, line, begin = Clock::now()] {
    int present = arrival;
    for (const Fault& fault : faults) {
      const bool returns = fault.kind == FaultKind::kReturns;
      if (!returns && fault.kind != FaultKind::kRemoved) continue;
      const std::chrono::duration<double> wait(fault.at);
      std::this_thread::sleep_until(begin + std::chrono::duration_cast<Clock::duration>(wait));
      const PresenceLock lock;
      if (!goesOn(symbolicLink, line) || arrivalOf(symbolicLink) != present) return;
      warn(setPluggedIn(symbolicLink, returns));
      present = arrivalOf(symbolicLink);
    }
  });
}

void broadcastRemovalOfAnother() {
  runDetached([] {
    if (const unsigned long error = broadcastDeviceChange(DeviceChange::kRemoval, kAnotherDevice)) {
      warn(QStringLiteral("The removal of another device could not be told: error %1.").arg(error));
    }
  });
}
