#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// The host's services as unit tests see them: threads are real, time passes only when a test or the code's own `sleep`
/// and `now` move it, paths are normalised by folding case, and every call that matters is on record.
struct FakeHostServices {
  /// The clock, in ticks of one millisecond.
  std::atomic<std::uint64_t> ticks{0};
  /// How far each reading of the clock moves it: lets a busy wait reach its end.
  std::atomic<std::uint64_t> ticksPerReading{0};
  /// Called on every sleep but the yields, with its milliseconds, on the thread that sleeps.
  std::function<void(std::uint32_t)> onSleep;
  /// Milliseconds of all sleeps but the yields, in order.
  std::vector<std::uint32_t> sleeps;
  std::string lastThreadName;
  std::vector<int> priorities;
  std::atomic<int> threadsCreated{0};
  std::atomic<int> threadsWaitedFor{0};
  /// Library names handed to the module service, and how many are still loaded.
  std::vector<std::string> loadedNames;
  int librariesOpen = 0;
  bool copyFails = false;
};

FakeHostServices& fakeHostServices();

/// Puts the services back into their first state; for the start of a test.
void resetFakeHostServices();
