#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

/// How long the rounds of a step took.
class Durations {
 public:
  template <class Step>
  void measure(Step step) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    step();
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }

  /// In milliseconds, of one round or more.
  [[nodiscard]] double median() {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
  }

 private:
  std::vector<double> times;
};
