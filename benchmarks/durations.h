#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

/// How long a step takes.
template <class Step>
[[nodiscard]] double millisecondsOf(Step step) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  step();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Of one value or more; of an even number the upper one of the two in the middle.
[[nodiscard]] inline double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}
