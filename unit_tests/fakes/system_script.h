#pragma once

#include <map>
#include <string>
#include <vector>

#include "unit_tests/fakes/substitute_import.h"

/// Which scripted system calls fail, what was called, and what was acquired and not given back. One for the program.
/// The state of this and of the other scripts is never destroyed: the product's own statics still call the system at
/// exit.
class SystemScript {
 public:
  /// The `nth` call of this function from now on fails, counted from 1.
  void failCall(const std::string& function, int nth = 1) { failing[function] = calls(function) + nth; }
  void failEveryCall(const std::string& function) { failing[function] = 0; }
  /// The `nth` of all calls that can fail does from now on, counted from 1; if it lasts, so do all that follow. 0 for
  /// none.
  void failAnyCall(int nth, bool lasts = false) {
    failingCall = nth;
    failureLasts = lasts;
    failable = 0;
    failed.clear();
  }

  /// For a scripted function that can fail: puts the call on record and says whether it fails.
  bool fails(const std::string& function);
  /// For a scripted function that cannot.
  void note(const std::string& function) { history.push_back(function); }
  void acquire(const std::string& kind) { ++balance[kind]; }
  void release(const std::string& kind) { --balance[kind]; }

  int calls(const std::string& function) const;
  /// The function whose call failed first on request; empty when none did.
  const std::string& failedFunction() const { return failed; }
  /// All calls in order.
  const std::vector<std::string>& log() const { return history; }
  /// What is acquired more often than released, or the other way round.
  std::map<std::string, int> outstanding() const;

 private:
  std::map<std::string, int> failing;
  int failingCall = 0;
  bool failureLasts = false;
  int failable = 0;
  std::string failed;
  std::vector<std::string> history;
  std::map<std::string, int> balance;
};

SystemScript& systemScript();

/// How many blocks of new[] the program's own code holds: the form in which texts cross class boundaries.
int liveArrays();

/// Forgets everything, devices, registry and sources of the other scripts included; for the start of a test.
void resetSystemScript();
