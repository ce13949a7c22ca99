#pragma once

#include <cstdint>
#include <span>

/// Copies RGB32 pixels and sets the unused fourth byte of each to 0xFF, so that the copy is an opaque image. `to` holds
/// at least as many bytes as `from` and does not overlap it. Bytes beyond the last whole pixel are copied as they are.
void copyOpaque(std::span<const std::uint8_t> from, std::uint8_t* to);
