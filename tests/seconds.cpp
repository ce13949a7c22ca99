#include "tests/seconds.h"

#include <cstdlib>
#include <limits>
#include <stdexcept>

std::uint32_t secondsFromText(const std::string& text) {
  // std::stoul is as wide as `long`, which differs between the platforms, and words its errors after the library.
  constexpr long long kMaximum = std::numeric_limits<std::uint32_t>::max();
  char* end = nullptr;
  const long long value = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str()) throw std::invalid_argument("invalid stoul argument");
  if (value > kMaximum || value < -kMaximum) throw std::out_of_range("stoul argument out of range");
  return static_cast<std::uint32_t>(value);
}
