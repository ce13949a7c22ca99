#include <gtest/gtest.h>

#include <string>

#include "module/keys/hint.h"
#include "module/keys/settings_keys.h"

TEST(Keys, TheSetOfTimeoutsHoldsTheGeneralOneAndThoseOf23Tests) {
  EXPECT_EQ(settings_keys::kTestTimeoutKeys.size(), 24u);
  EXPECT_EQ(settings_keys::kTestTimeoutKeys.count("ORCA_TEST_TIMEOUT"), 1u);
  EXPECT_EQ(settings_keys::kTestTimeoutKeys.count("ORCA_POPUP_TIMEOUT"), 0u);
  for (const std::string& key : settings_keys::kTestTimeoutKeys)
    EXPECT_EQ(key.rfind("ORCA_TEST_TIMEOUT", 0), 0u) << key;
}

TEST(Keys, TheHintIsJoinedByAColonAndOneBlank) {
  EXPECT_EQ(kFailureHint, "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE");
}
