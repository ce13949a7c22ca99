#pragma once

#include <cstdint>

// Some C libraries define these as macros.
#undef major
#undef minor

/// The version of the product that the module belongs to, as the host reads it. It is not the file version of the DLL.
class ProductVersion {
 public:
  ProductVersion(std::uint32_t majorNumber, std::uint32_t minorNumber, std::uint32_t patchNumber,
                 std::uint32_t buildNumber)
      : major_(majorNumber), minor_(minorNumber), patch_(patchNumber), build_(buildNumber) {}
  virtual ~ProductVersion() = default;

  virtual std::uint32_t major() { return major_; }
  virtual std::uint32_t minor() { return minor_; }
  virtual std::uint32_t patch() { return patch_; }
  virtual std::uint32_t build() { return build_; }

 private:
  std::uint32_t major_;
  std::uint32_t minor_;
  std::uint32_t patch_;
  std::uint32_t build_;
};
