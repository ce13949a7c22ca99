#pragma once

#include <cstdint>
#include <string>

/// Converts a settings value to seconds as the standard unsigned conversion does where it has 32 bits: leading blanks
/// and a sign are accepted ("-1" is 4294967295), what follows the digits is ignored. Throws std::invalid_argument
/// ("invalid stoul argument") or std::out_of_range ("stoul argument out of range").
[[nodiscard]] std::uint32_t secondsFromText(const std::string& text);
