#pragma once

#include <atomic>
#include <cstdio>
#include <initializer_list>
#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

/// What goes wrong: a call into the system or an allocation of the program's own code fails, the host or its camera
/// throws, the context yields null, the camera answers with a failure, the run is cancelled or ended by an event, a
/// dialog is not shown.
enum class Fault { kNone, kSystem, kMemory, kThrown, kNull, kStatus, kCancelled, kEvent, kNoDialog };

/// While not 0, no memory that this thread allocates fails or is counted.
inline constinit thread_local int memoryPauses = 0;

/// Where fakes ask whether their call is the one that fails. One for the program, for any thread; allocates nothing.
struct FaultPoint {
  /// Whether the caller's operation fails; `name` is a literal.
  bool fails(Fault kind, const char* name) {
    if (kind == Fault::kNone || kind != armed || (kind == Fault::kMemory && memoryPauses != 0)) return false;
    const int number = ++asked;
    if (number == failing) failed = name;
    return number == failing || (lasts && number > failing);
  }
  /// What an operation answers that can throw, or answer with `faulty`.
  template <class Value>
  Value answer(const char* name, Value value, Fault kind, Value faulty) {
    if (fails(Fault::kThrown, name)) throw std::runtime_error(name);
    return fails(kind, name) ? faulty : value;
  }

  std::atomic<Fault> armed = Fault::kNone;
  std::atomic<bool> lasts = false;
  std::atomic<int> failing = 0;
  std::atomic<int> asked = 0;
  /// What failed first; empty when nothing did.
  std::atomic<const char*> failed = "";
};
inline constinit FaultPoint faultPoint;

/// For what a fake does for itself: its memory never fails.
struct FaultPause {
  FaultPause() { ++memoryPauses; }
  ~FaultPause() { --memoryPauses; }
  FaultPause(const FaultPause&) = delete;
  FaultPause& operator=(const FaultPause&) = delete;
};

/// Begins to count the blocks that the program's own code allocates while a fault is to come.
void forgetBlocks();
/// How many of them live yet.
int blocksLeft();

/// The rounds of a test in which everything fails in its turn. Says in the end how many faults that were.
struct FaultRounds {
  ~FaultRounds() { std::printf("faults tried: %d\n", tried); }

  /// Runs `round` again and again: the first of what its attempt does fails, then the second, until there is none left
  /// to fail; all of that once with a single failure and once with one that lasts. Ends with the first failed check.
  template <class Round>
  void forEach(std::initializer_list<Fault> kinds, Round round) {
    for (const Fault each : kinds) {
      for (const bool faultLasts : {false, true}) {
        kind = each;
        lasts = faultLasts;
        for (failing = 1;; ++failing) {
          round();
          if (testing::Test::HasFailure()) return static_cast<void>(std::printf("%s\n", what().c_str()));
          if (name.empty()) break;
          names.insert(name);
          ++tried;
        }
      }
    }
  }

  /// Does that of which something fails; afterwards nothing does. Whether it came to its end, without an exception.
  template <class Attempt>
  bool attempt(Attempt calls) {
    bool finished = false;
    forgetBlocks();
    faultPoint.lasts = lasts;
    faultPoint.failing = failing;
    faultPoint.asked = 0;
    faultPoint.failed = "";
    faultPoint.armed = kind;
    try {
      calls();
      finished = true;
    } catch (const std::exception&) {
    }
    faultPoint.armed = Fault::kNone;
    name = faultPoint.failed;
    return finished;
  }
  std::string what() const { return std::to_string(failing) + (lasts ? " and all after it: " : ": ") + name; }

  Fault kind = Fault::kNone;
  bool lasts = false;
  int failing = 0;
  /// What failed in this round, empty when nothing did; and in all rounds.
  std::string name;
  std::set<std::string> names;
  int tried = 0;
};
