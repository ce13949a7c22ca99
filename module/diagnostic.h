#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "module/item_id.h"
#include "module/test.h"

/// A named group of tests. It does not own them: the release export deletes them.
class Diagnostic {
 public:
  Diagnostic(const ItemId& itemId, const std::vector<Test*>& testList) : id(itemId), tests(testList) {}
  virtual ~Diagnostic() = default;
  Diagnostic(const Diagnostic&) = delete;
  Diagnostic& operator=(const Diagnostic&) = delete;

  virtual ItemId getId() { return id; }
  virtual std::size_t testCount() { return tests.size(); }
  /// Null when `index` is out of range.
  virtual Test* testAt(std::uint32_t index) { return index < tests.size() ? tests[index] : nullptr; }
  /// The first test with this identifier's key, or null.
  virtual Test* findTest(const ItemId& itemId);

 private:
  ItemId id;
  std::vector<Test*> tests;
};
