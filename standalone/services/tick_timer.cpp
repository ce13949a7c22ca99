#include "standalone/services/tick_timer.h"

#include <windows.h>

void TickTimer::sleep(std::uint32_t milliseconds) {
  Sleep(milliseconds);
}

double TickTimer::elapsedSeconds(std::uint32_t start, std::uint32_t end) {
  return static_cast<std::uint32_t>(end - start) / 1000.0;
}

std::uint64_t TickTimer::now() {
  return GetTickCount64();
}
