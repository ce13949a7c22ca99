#include "module/diagnostic.h"

#include <algorithm>

Diagnostic::Diagnostic(const ItemId& itemId, const std::vector<Test*>& testList) : id(itemId), tests(testList) {}

Diagnostic::~Diagnostic() = default;

ItemId Diagnostic::getId() {
  return id;
}

std::size_t Diagnostic::testCount() {
  return tests.size();
}

Test* Diagnostic::testAt(std::uint32_t index) {
  return index < tests.size() ? tests[index] : nullptr;
}

Test* Diagnostic::findTest(const ItemId& itemId) {
  const auto found = std::find_if(tests.begin(), tests.end(), [&](Test* test) { return test->id.key == itemId.key; });
  return found != tests.end() ? *found : nullptr;
}
