#pragma once

#include <cstdint>

/// The sizes of the barcode dialog, in pixels. The picture's aspect ratio differs from row to row.
struct BarcodeSizes {
  std::int32_t imageWidth;
  std::int32_t imageHeight;
  /// The least height of the areas above and below the picture.
  std::int32_t grayAreaHeight;
};

/// The sizes that fit a screen of this width.
constexpr BarcodeSizes barcodeSizesFor(int screenWidth) {
  if (screenWidth <= 800) return {480, 340, 40};
  if (screenWidth <= 1280) return {640, 360, 50};
  if (screenWidth <= 1600) return {720, 480, 60};
  return {960, 540, 70};
}

/// Which of the two viewfinders a picture of this width gets.
constexpr bool hasSmallViewfinder(int imageWidth) {
  return imageWidth < 720;
}
