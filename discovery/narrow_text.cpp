#include "discovery/narrow_text.h"

#include <windows.h>

#include <algorithm>

namespace {

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::string narrowed(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(std::max(size, 0)), '\0');
  if (WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr) != size) return {};
  return result;
}

std::wstring widened(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(std::max(size, 0)), L'\0');
  if (MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size) != size) return {};
  return result;
}

OwnedText narrowedWithin(std::wstring_view text, std::size_t bytes) {
  const std::string whole = narrowed(text);
  if (bytes == 0 || whole.empty() != text.empty()) return nullptr;

  std::size_t length = std::min(whole.size(), bytes - 1);
  while (length < whole.size() && continuesCharacter(whole[length])) --length;
  OwnedText copy = std::make_unique<char[]>(bytes);
  whole.copy(copy.get(), length);
  return copy;
}

OwnedText ownedCopy(std::string_view text) {
  OwnedText copy = std::make_unique<char[]>(text.size() + 1);
  text.copy(copy.get(), text.size());
  return copy;
}
