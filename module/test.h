#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "module/item_id.h"

class SystemComponent;
class TestExecutionContext;

/// The outcome of a test run.
using TestResult = std::uint32_t;
inline constexpr TestResult kTestPassed = 0;
/// The camera is at fault. The only result to which the hint about defective components is added.
inline constexpr TestResult kTestFailed = 1;
/// The component is not a camera, or the host refuses to start.
inline constexpr TestResult kTestNotPerformed = 3;
/// Cancelled by the user, the host or an event, or the camera went away.
inline constexpr TestResult kTestCancelled = 4;
inline constexpr TestResult kTestError = 5;
/// The execution context lacks a service that the test needs.
inline constexpr TestResult kTestNotSupported = 6;

/// The host's settings: section name to key to value.
using TestSettings = std::map<std::string, std::map<std::string, std::string>>;

/// A record of the host whose meaning is the host's own; this module answers zeros.
struct HostWords {
  std::uint64_t words[3] = {0, 0, 0};
};

/// A record of the host whose meaning is the host's own; this module ignores it.
struct HostRecord {
  std::string texts[5];
  std::uint64_t number = 0;
  std::string lastText;
};

/// A test as the host sees it. The host calls the virtual operations by their place: their order never changes.
class Test {
 public:
  explicit Test(const ItemId& itemId) : id(itemId) {}
  virtual ~Test() = default;
  Test(const Test&) = delete;
  Test& operator=(const Test&) = delete;

  /// Whether the test can run against this component; null is not applicable.
  virtual bool isApplicable(SystemComponent* component) = 0;
  /// Runs the test on the calling thread, which is a worker thread of the host.
  [[nodiscard]] virtual TestResult run(TestExecutionContext* context) = 0;
  virtual bool isImplemented() = 0;

  // The next six places, and the last one, are the host's hooks for other kinds of test: fixed answers.
  virtual bool hostFlagAtPlace5() { return false; }
  virtual HostWords hostWordsAtPlace6() { return {}; }
  virtual void hostRecordAtPlace7(HostRecord) {}
  virtual HostWords hostWordsAtPlace8() { return {}; }
  virtual bool hostFlagAtPlace9() { return true; }
  virtual bool hostFlagAtPlace10() { return true; }

  /// Takes the host's settings. Throws what the standard conversions throw when a value is not a number.
  [[nodiscard]] virtual bool configure(TestSettings, std::uint64_t) { return true; }

  virtual void hostHookAtPlace12() {}

  ItemId id;
  std::vector<ItemId> linkedIds;
};
