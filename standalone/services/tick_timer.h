#pragma once

#include "module/host_services.h"

/// Time in ticks of one millisecond since the system started. Holds no state.
class TickTimer : public TimerService {
 public:
  void sleep(std::uint32_t milliseconds) override;
  /// Right across the wrap of the 32-bit tick, every 49.7 days.
  double elapsedSeconds(std::uint32_t start, std::uint32_t end) override;
  std::uint64_t now() override;
};
