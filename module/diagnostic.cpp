#include "module/diagnostic.h"

#include <algorithm>

Test* Diagnostic::findTest(const ItemId& itemId) {
  const auto found = std::find_if(tests.begin(), tests.end(), [&](Test* test) { return test->id.key == itemId.key; });
  return found != tests.end() ? *found : nullptr;
}
