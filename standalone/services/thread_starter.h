#pragma once

#include "module/host_services.h"

/// Starts system threads. Any thread may call; `lastThreadId` belongs to the caller's thread when `create` returns and
/// stays so until somebody else creates a thread.
class ThreadStarter : public ThreadService {
 public:
  /// `handle` receives 0 when the system has no thread to give.
  void create(std::uint64_t* handle, std::uint64_t, void (*entry)(void*), void* argument, const char* name) override;
  void unused3() override {}
  /// Frees the handle, too. Does nothing for 0.
  void wait(std::uint64_t handle) override;
  /// `value` is a step from 1 (lowest) over 3 (normal) to 5 (highest); steps beyond the ends count as the ends.
  void setPriority(std::uint64_t handle, int value) override;
};
