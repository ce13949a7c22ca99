#include <gtest/gtest.h>

#include <set>
#include <string>

#include "module/keys/camera_keys.h"
#include "module/keys/dialog_keys.h"
#include "module/keys/hint.h"
#include "module/keys/module_codes.h"
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

TEST(Keys, KeysAreUpperCaseWordsAndDiffer) {
  const std::vector<std::string> keys = {kCamera,
                                         kQuickCamera,
                                         kQuickCameraTestsTooltip,
                                         kCameraCaptureTest,
                                         kCameraCaptureTestDescription,
                                         kCameraBarcodeTest,
                                         kCameraBarcodeTestDescription,
                                         kUdi,
                                         kCameraDescription,
                                         kCameraManufacturer,
                                         kCameraHardwareId,
                                         kCameraType,
                                         kDriverVersion,
                                         kCameraVendor,
                                         kPossibleDefectiveComponents,
                                         kCameraDevice,
                                         kDeviceNotIdentified,
                                         kCannotAccessDevice,
                                         kFailedToInitialize,
                                         kFailedToCapture,
                                         kFailedToCaptureDeviceWasRemoved,
                                         kFailedToCaptureDueTimeout,
                                         kTestAbortedByEvent,
                                         kCameraResultFailed,
                                         kBarcodeValue,
                                         kBarcodeFailScanMessage,
                                         kBarcodeCanceledDueInvalidInput};
  EXPECT_EQ(keys.size(), 27u);
  EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size());
  for (const std::string& key : keys) {
    EXPECT_EQ(key.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_"), std::string::npos) << key;
  }
}
