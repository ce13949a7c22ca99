#include "utils/platform/narrow_text.h"

#include <windows.h>

namespace vexa::utils::platform {

std::string narrowed(std::wstring_view text) {
  // A UTF-16 unit takes at most three bytes.
  std::string result(text.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                                       static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(size));
  return result;
}

std::wstring widened(std::string_view text) {
  // A byte makes at most one UTF-16 unit.
  std::wstring result(text.size(), L'\0');
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                                       static_cast<int>(result.size()));
  result.resize(static_cast<std::size_t>(size));
  return result;
}

}  // namespace vexa::utils::platform
