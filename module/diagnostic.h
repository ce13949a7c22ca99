#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "module/item_id.h"
#include "module/test.h"

/// A named group of tests. It does not own them: the release export deletes them.
class Diagnostic {
 public:
  Diagnostic(const ItemId& itemId, const std::vector<Test*>& testList);
  virtual ~Diagnostic();
  Diagnostic(const Diagnostic&) = delete;
  Diagnostic& operator=(const Diagnostic&) = delete;

  virtual ItemId getId();
  virtual std::size_t testCount();
  /// Null when `index` is out of range.
  virtual Test* testAt(std::uint32_t index);
  /// The first test with this identifier's key, or null.
  virtual Test* findTest(const ItemId& itemId);

 private:
  ItemId id;
  std::vector<Test*> tests;
};
