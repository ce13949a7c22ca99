#pragma once

#include <atomic>
#include <cstdint>

class QDialog;

/// A dialog's answer: written on the user-interface thread, polled by the test's thread. A stale read only costs the
/// test one more pass of its loop, so that nothing waits for it.
using DialogResult = std::atomic<std::int32_t>;
static_assert(DialogResult::is_always_lock_free && sizeof(DialogResult) == 4);

// The answers. They are the dialogs' QDialog results, too.
constexpr int kNoAnswer = 0;
constexpr int kFailedByUser = 2;
constexpr int kDialogClosed = 5;

/// Leaves the answer in the dialog and, unless it is null, in `target`.
void storeResult(QDialog& dialog, DialogResult* target, int answer);

/// Shows the dialog above all other windows, without keeping it there.
void bringToFront(QDialog& dialog);
