#include "capture/frame_copy.h"

#include <cstring>

void copyOpaque(std::span<const std::uint8_t> from, std::uint8_t* to) {
  constexpr std::uint32_t kOpaque = 0xFF000000;  // byte 3 in memory order: the module's machines are little-endian
  constexpr std::size_t kPixel = sizeof(std::uint32_t);

  // Copy and fill in one pass, in a form that the compiler turns into vector instructions.
  const std::size_t whole = from.size() / kPixel * kPixel;
  for (std::size_t i = 0; i < whole; i += kPixel) {
    std::uint32_t pixel;
    std::memcpy(&pixel, from.data() + i, kPixel);
    pixel |= kOpaque;
    std::memcpy(to + i, &pixel, kPixel);
  }
  if (whole < from.size()) std::memcpy(to + whole, from.data() + whole, from.size() - whole);
}
