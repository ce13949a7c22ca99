#pragma once

#include <cstdint>

/// Identifies the module, a diagnostic or a test towards the host. Two identifiers are the same thing exactly when
/// their `key` is; the other fields are for reading only.
struct ItemId {
  ItemId() = default;

  /// `diagnosticNumber` and `testNumber` are 24-bit numbers. `key` takes them unmasked, as is required: a wider number
  /// spills into its neighbour, so that two identifiers with equal fields may differ.
  constexpr ItemId(std::uint16_t moduleNumber, std::uint32_t diagnosticNumber, std::uint32_t testNumber)
      : module(moduleNumber),
        diagnostic(diagnosticNumber & 0xffffff),
        test(testNumber & 0xffffff),
        key((((std::uint64_t{moduleNumber} << 24) | diagnosticNumber) << 24) | testNumber) {}

  std::uint16_t module = 0;
  std::uint32_t diagnostic = 0;
  std::uint32_t test = 0;
  std::uint64_t key = 0;
};

/// The order of maps that are keyed by an identifier.
inline bool operator<(const ItemId& left, const ItemId& right) {
  return left.key < right.key;
}
