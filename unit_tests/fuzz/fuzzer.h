#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What the fuzzing library calls with each of its inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input as it is, not copied.
inline QByteArray inputBytes(const std::uint8_t* data, std::size_t size) {
  return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

/// Ends the program when something does not hold; the fuzzing library then keeps the input.
inline void require(bool holds, const char* sentence) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", sentence);
  std::abort();
}
