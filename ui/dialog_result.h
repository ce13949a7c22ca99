#pragma once

#include <atomic>
#include <cstdint>

/// What a dialog tells the test's thread: written on the user-interface thread only. A stale read only costs the test
/// one more pass of its loop, so that nothing waits for it.
using DialogResult = std::atomic<std::int32_t>;
static_assert(DialogResult::is_always_lock_free && sizeof(DialogResult) == 4);

// The answers. They are the dialogs' QDialog results, too.
constexpr int kNoAnswer = 0;
constexpr int kFailedByUser = 2;
constexpr int kDialogClosed = 5;
