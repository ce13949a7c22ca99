#pragma once

#include <cstdint>
#include <vector>

namespace vexa::utils::platform {

/// The highest of the steps 96, 120, 144, 168, 192, 216, 240, 288 and 336 that is not above `dpi`, but at least 96.
[[nodiscard]] std::int32_t quantiseDpi(std::int32_t dpi);

/// How far each Qt screen is scaled. Only for the user-interface thread; the table is a picture of the moment in which
/// it was built.
class DisplayScaleTable {
 public:
  DisplayScaleTable();

  /// 1.0 for 96 dots per inch, at most 2.0. A screen that the table does not hold counts as 1.0.
  [[nodiscard]] double ScaleFactor(int screenIndex) const;

  /// Quantised dots per inch by screen, at most 192: beyond a factor of 2.0 a picture would become too small.
  std::vector<std::int32_t> scaleDpi;
  /// The same without that cap, at most 336.
  std::vector<std::int32_t> fullDpi;
};

}  // namespace vexa::utils::platform
