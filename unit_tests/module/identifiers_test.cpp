#include "module/identifiers.h"

#include <gtest/gtest.h>

TEST(ItemId, FieldsAreMaskedButTheKeyIsNot) {
  const ItemId wide(17, 0x2000001, 0x3000002);
  EXPECT_EQ(wide.diagnostic, 1u);
  EXPECT_EQ(wide.test, 2u);
  EXPECT_EQ(wide.key, ((((std::uint64_t{17} << 24) | 0x2000001) << 24) | 0x3000002));
}
