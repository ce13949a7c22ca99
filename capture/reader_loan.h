#pragma once

#include <mfreadwrite.h>
#include <wrl/client.h>

#include <QMutex>
#include <QMutexLocker>

/// Takes the reader that a worker lent to its capturer's callback back at the end of a scope, when no callback is under
/// way. The worker keeps a reference of its own and gives that up outside the lock: the last release may wait for a
/// callback, which takes the same lock.
class ReaderLoan {
 public:
  /// `reader` is guarded by `guard`; both outlive the loan.
  ReaderLoan(Microsoft::WRL::ComPtr<IMFSourceReader>& reader, QMutex& guard) : lent(reader), mutex(guard) {}
  ~ReaderLoan() {
    // A start-up that came to nothing leaves `start` waiting, with the lock.
    if (!lent) return;
    const QMutexLocker lock(&mutex);
    lent.Reset();
  }
  ReaderLoan(const ReaderLoan&) = delete;
  ReaderLoan& operator=(const ReaderLoan&) = delete;

 private:
  Microsoft::WRL::ComPtr<IMFSourceReader>& lent;
  QMutex& mutex;
};
