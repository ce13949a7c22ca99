#include "capture/frame_copy.h"

#include <numeric>
#include <vector>

#include <gtest/gtest.h>

TEST(CopyOpaque, SetsEveryFourthByteAndCopiesTheRestOfAnyLength) {
  for (std::size_t size = 0; size < 70; ++size) {
    std::vector<std::uint8_t> from(size);
    std::iota(from.begin(), from.end(), std::uint8_t{1});
    std::vector<std::uint8_t> to(size + 1, 0xAA);
    copyOpaque(from, to.data());
    std::vector<std::uint8_t> expected = from;
    for (std::size_t i = 3; i < size; i += 4) expected[i] = 0xFF;
    expected.push_back(0xAA);
    EXPECT_EQ(to, expected) << size;
  }
}
