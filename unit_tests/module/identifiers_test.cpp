#include "module/identifiers.h"

#include <gtest/gtest.h>

TEST(ItemId, KeysHoldModuleDiagnosticAndTest) {
  EXPECT_EQ(kResourceId.key, 0x11000000000000u);
  EXPECT_EQ(kComponentManagerId.key, 0x11000000000000u);
  EXPECT_EQ(kCameraDiagnosticId.key, 0x11000001000000u);
  EXPECT_EQ(kCaptureTestId.key, 0x11000001000001u);
  EXPECT_EQ(kBarcodeTestId.key, 0x11000001000002u);
  EXPECT_EQ(ItemId().key, 0u);
}

TEST(ItemId, FieldsAreMaskedButTheKeyIsNot) {
  const ItemId wide(17, 0x2000001, 0x3000002);
  EXPECT_EQ(wide.diagnostic, 1u);
  EXPECT_EQ(wide.test, 2u);
  EXPECT_EQ(wide.key, ((((std::uint64_t{17} << 24) | 0x2000001) << 24) | 0x3000002));
}
