#pragma once

#include <QCoreApplication>
#include <QMetaObject>

#include <functional>

/// Calls `step` on the user-interface thread, after everything that is queued for it, and waits for its end. For every
/// other thread.
inline void onUserInterface(const std::function<void()>& step) {
  QMetaObject::invokeMethod(qApp, step, Qt::BlockingQueuedConnection);
}
