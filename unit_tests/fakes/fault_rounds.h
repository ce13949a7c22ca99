#pragma once

#include <atomic>
#include <cstdio>
#include <exception>
#include <initializer_list>
#include <set>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

/// What goes wrong.
enum class Fault {
  kNone,
  /// A call into the system, or a service of the host that stands for one, fails.
  kSystem,
  /// An allocation of the program's own code fails (failing_memory.cpp).
  kMemory,
  /// An operation of the host or of its camera throws.
  kThrown,
  /// The context yields null.
  kNull,
  /// The capturer answers with a failure.
  kStatus,
  kCancelled,
  kEvent,
  /// The host shows no dialog.
  kNoDialog
};

/// Where fakes ask whether their call is the one that fails. One for the program, for any thread; allocates nothing.
class FaultPoint {
 public:
  /// The `nth` of all questions about this kind from now on is answered with yes; if it lasts, so are all that follow.
  void arm(Fault kind, int nth, bool lasts) {
    failing = nth;
    failureLasts = lasts;
    asked = 0;
    failed = "";
    armed = kind;
  }
  /// Returns what failed first; empty when nothing did.
  std::string disarm() {
    armed = Fault::kNone;
    return failed.load();
  }
  [[nodiscard]] bool isArmed() const { return armed != Fault::kNone && pauses == 0; }

  /// Whether the caller's operation fails; `name` is a literal.
  bool fails(Fault kind, const char* name) {
    if (kind == Fault::kNone || kind != armed || (kind == Fault::kMemory && pauses != 0)) return false;
    const int number = ++asked;
    if (number == failing) failed = name;
    return number == failing || (failureLasts && number > failing);
  }
  /// What an operation answers that can throw, or answer with `faulty`.
  template <class Value>
  Value answer(const char* name, Value value, Fault kind, Value faulty) {
    if (fails(Fault::kThrown, name)) throw std::runtime_error(name);
    return fails(kind, name) ? faulty : value;
  }

  /// While not 0, memory does not fail and is not counted.
  std::atomic<int> pauses = 0;

 private:
  std::atomic<Fault> armed = Fault::kNone;
  std::atomic<bool> failureLasts = false;
  std::atomic<int> failing = 0;
  std::atomic<int> asked = 0;
  std::atomic<const char*> failed = "";
};

inline constinit FaultPoint faultPoint;

/// For what a fake does for itself: its memory never fails.
class FaultPause {
 public:
  FaultPause() { ++faultPoint.pauses; }
  ~FaultPause() { --faultPoint.pauses; }
  FaultPause(const FaultPause&) = delete;
  FaultPause& operator=(const FaultPause&) = delete;
};

/// Begins to count the blocks that the program's own code allocates while a fault is to come.
void forgetBlocks();
/// How many of them live yet.
int blocksLeft();

/// The rounds of a test in which everything fails in its turn. Says in the end how many faults that were.
class FaultRounds {
 public:
  FaultRounds() = default;
  ~FaultRounds() { std::printf("faults tried: %d\n", tried); }
  FaultRounds(const FaultRounds&) = delete;
  FaultRounds& operator=(const FaultRounds&) = delete;

  /// Runs `round` again and again: the first of what its attempt does fails, then the second, until there is none left
  /// to fail; all of that once with a single failure and once with one that lasts. Ends with the first failed check.
  template <class Round>
  void forEach(std::initializer_list<Fault> kinds, Round round) {
    for (const Fault faultKind : kinds) {
      for (const bool faultLasts : {false, true}) {
        kind = faultKind;
        lasts = faultLasts;
        for (failing = 1; !testing::Test::HasFailure(); ++failing) {
          round();
          if (name.empty()) break;
          names.insert(name);
          ++tried;
          EXPECT_LT(failing, 5000) << name;
        }
        if (testing::Test::HasFailure()) std::printf("%s\n", what().c_str());
      }
    }
  }

  /// Does that of which something fails; afterwards nothing does. Whether it came to its end, without an exception.
  template <class Attempt>
  bool attempt(Attempt calls) {
    bool finished = false;
    forgetBlocks();
    faultPoint.arm(kind, failing, lasts);
    try {
      calls();
      finished = true;
    } catch (const std::exception&) {
    }
    name = faultPoint.disarm();
    return finished;
  }
  bool failed(const std::set<std::string>& calls) const { return calls.contains(name); }
  std::string what() const { return std::to_string(failing) + (lasts ? " and all after it: " : ": ") + name; }

  Fault kind = Fault::kNone;
  bool lasts = false;
  int failing = 0;
  /// What failed in this round, empty when nothing did; and in all rounds.
  std::string name;
  std::set<std::string> names;

 private:
  int tried = 0;
};
