#pragma once

#include <cstdint>

/// The version of the product that the module belongs to, as the host reads it. It is not the file version of the DLL.
class ProductVersion {
 public:
  constexpr ProductVersion(std::uint32_t major, std::uint32_t minor, std::uint32_t patch, std::uint32_t build)
      : majorNumber(major), minorNumber(minor), patchNumber(patch), buildNumber(build) {}
  virtual ~ProductVersion() = default;
  ProductVersion(const ProductVersion&) = delete;
  ProductVersion& operator=(const ProductVersion&) = delete;

  virtual std::uint32_t major() { return majorNumber; }
  virtual std::uint32_t minor() { return minorNumber; }
  virtual std::uint32_t patch() { return patchNumber; }
  virtual std::uint32_t build() { return buildNumber; }

 private:
  std::uint32_t majorNumber;
  std::uint32_t minorNumber;
  std::uint32_t patchNumber;
  std::uint32_t buildNumber;
};
