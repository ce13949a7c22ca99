#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// Windows hands out UTF-16; inside the module texts are UTF-8.

/// A zero-terminated text that crosses a class boundary through an out pointer.
using OwnedText = std::unique_ptr<char[]>;

/// Invalid pairs become replacement characters. Empty when the system refuses to convert.
std::string narrowed(std::wstring_view text);
std::wstring widened(std::string_view text);

/// `text` in a block of `bytes` bytes, cut after the last whole character that fits with the terminating zero. Null
/// when the system refuses to convert or there is no room for the zero.
OwnedText narrowedWithin(std::wstring_view text, std::size_t bytes);

/// A zero-terminated copy.
OwnedText ownedCopy(std::string_view text);

/// Answers as an operation that hands out a text: 1 for null, else 0 with the text in `out`, now the caller's.
inline std::uint32_t handOut(OwnedText text, char** out) {
  if (!text) return 1;
  *out = text.release();
  return 0;
}

/// Runs a reading operation, which takes a `char**` and answers 0 when it has allocated a text there.
template <class ReadingOperation>
std::optional<std::string> takeText(ReadingOperation read) {
  char* text = nullptr;
  if (read(&text) != 0) return std::nullopt;
  const OwnedText owner(text);
  return std::string(text);
}
