#include "tests/plausible_value.h"

#include <regex>
#include <string>

namespace {

constexpr qsizetype kLengthLimit = 61;

// One or more characters that a value must not hold.
const std::regex kImplausibleCharacters("[^\\da-zA-Z]+");

}  // namespace

bool isPlausibleValue(const QString& text) {
  if (text.isEmpty() || text.length() >= kLengthLimit) return false;
  return !std::regex_search(text.toStdString(), kImplausibleCharacters);
}
