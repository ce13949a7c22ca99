#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

/// The rounds of a test that lets two threads meet at random moments. Its seed is printed; MODULE_CAMERA_SEED sets it.
class RaceRounds {
 public:
  RaceRounds() { std::printf("races run: %d, seed %u\n", kCount, seed); }

  template <class Round>
  void forEach(Round round) {
    for (int number = 0; number < kCount; ++number) round();
  }

  /// Lets the calling thread go on after a random time.
  void pause(std::chrono::microseconds longest) {
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::microseconds(std::uniform_int_distribution<long long>(0, longest.count())(engine));
    while (std::chrono::steady_clock::now() < end) std::this_thread::yield();
  }

 private:
  static constexpr int kCount = 500;

  static unsigned chosenSeed() {
    const char* const wanted = std::getenv("MODULE_CAMERA_SEED");
    return wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : std::random_device()();
  }

  const unsigned seed = chosenSeed();
  std::mt19937 engine{seed};
};
