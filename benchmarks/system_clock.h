#pragma once

/// Clocks what this program calls of SetupAPI, the registry, COM and Media Foundation in order to find cameras, for as
/// long as it lives. One at a time, on one thread.
class SystemClock {
 public:
  SystemClock();
  ~SystemClock();
  SystemClock(const SystemClock&) = delete;
  SystemClock& operator=(const SystemClock&) = delete;

  /// What the calls have taken since the last time that somebody asked.
  [[nodiscard]] double takeMilliseconds();
};
