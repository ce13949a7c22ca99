#pragma once

#include <string>
#include <string_view>

// Windows hands out UTF-16; inside the module texts are UTF-8.

namespace vexa::utils::platform {

/// What is no valid UTF-16, a lone surrogate for one, becomes a replacement character. Empty when the system refuses to
/// convert.
[[nodiscard]] std::string narrowed(std::wstring_view text);
/// The same, the other way round.
[[nodiscard]] std::wstring widened(std::string_view text);

}  // namespace vexa::utils::platform
