#pragma once

#include <map>
#include <string>
#include <string_view>
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

  /// For a scripted function that can fail: puts the call on record and says whether it fails.
  bool fails(const char* function);
  /// For a scripted function that cannot.
  void note(std::string_view function);
  void acquire(std::string_view kind) { count(kind, 1); }
  void release(std::string_view kind) { count(kind, -1); }

  int calls(const std::string& function) const;
  /// All calls in order.
  const std::vector<std::string>& log() const { return history; }
  /// What is acquired more often than released, or the other way round.
  std::map<std::string, int> outstanding() const;

 private:
  void count(std::string_view kind, int change);

  std::map<std::string, int> failing;
  std::vector<std::string> history;
  std::map<std::string, int> balance;
};

SystemScript& systemScript();

/// Forgets everything, devices, registry and sources of the other scripts included; for the start of a test.
void resetSystemScript();
