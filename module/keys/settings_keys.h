#pragma once

// Keys of the host's settings map: the time-outs of its assisted mode, in seconds.

#include <set>
#include <string>

namespace settings_keys {

/// The section that holds the time-outs.
inline constexpr char kOrca[] = "ORCA";
inline constexpr char kOrcaPopupTimeout[] = "ORCA_POPUP_TIMEOUT";
/// The time-out of every test that has none of its own.
inline constexpr char kOrcaTestTimeout[] = "ORCA_TEST_TIMEOUT";
inline constexpr char kOrcaTestTimeoutCameraCaptureTest[] = "ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST";

/// The general time-out and those of single tests of all modules of the family. This module reads only the two above.
inline const std::set<std::string> kTestTimeoutKeys = {
    kOrcaTestTimeout,
    kOrcaTestTimeoutCameraCaptureTest,
    "ORCA_TEST_TIMEOUT_DISPLAY_BLACK_PURITY_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_BLUE_PURITY_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_COLOR_TRANSITION_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_GREEN_PURITY_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_INVERTED_MONOCHROMATIC_MESH_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_MONOCHROMATIC_MESH_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_RED_PURITY_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_SHARPNESS_TEST",
    "ORCA_TEST_TIMEOUT_DISPLAY_WHITE_PURITY_TEST",
    "ORCA_TEST_TIMEOUT_FINGERPRINT_RECOGNITION_TEST",
    "ORCA_TEST_TIMEOUT_MOUSE_CLICK_TEST",
    "ORCA_TEST_TIMEOUT_MOUSE_PRECISION_TEST",
    "ORCA_TEST_TIMEOUT_MOUSE_PRESS_PRECISION_TEST",
    "ORCA_TEST_TIMEOUT_SENSORS_LID_CLOSURE_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHPAD_CLICK_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHPAD_PRECISION_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHPAD_PRESS_PRECISION_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHSCREEN_ACCURACY_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHSCREEN_BASIC_TOUCH_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHSCREEN_DIAGONAL_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHSCREEN_GRID_TEST",
    "ORCA_TEST_TIMEOUT_TOUCHSCREEN_MULTI_TOUCH_TEST",
};

}  // namespace settings_keys
