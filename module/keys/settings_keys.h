#pragma once

// Keys of the host's settings map: the time-outs of its assisted mode, in seconds.

#include <set>
#include <string>

namespace settings_keys {

/// The section that holds the time-outs.
const std::string kOrca = "ORCA";
const std::string kOrcaPopupTimeout = "ORCA_POPUP_TIMEOUT";
/// The time-out of every test that has none of its own.
const std::string kOrcaTestTimeout = "ORCA_TEST_TIMEOUT";

const std::string kOrcaTestTimeoutCameraCaptureTest = "ORCA_TEST_TIMEOUT_CAMERA_CAPTURE_TEST";
const std::string kOrcaTestTimeoutDisplayBlackPurityTest = "ORCA_TEST_TIMEOUT_DISPLAY_BLACK_PURITY_TEST";
const std::string kOrcaTestTimeoutDisplayBluePurityTest = "ORCA_TEST_TIMEOUT_DISPLAY_BLUE_PURITY_TEST";
const std::string kOrcaTestTimeoutDisplayColorTransitionTest = "ORCA_TEST_TIMEOUT_DISPLAY_COLOR_TRANSITION_TEST";
const std::string kOrcaTestTimeoutDisplayGreenPurityTest = "ORCA_TEST_TIMEOUT_DISPLAY_GREEN_PURITY_TEST";
const std::string kOrcaTestTimeoutDisplayInvertedMonochromaticMeshTest =
    "ORCA_TEST_TIMEOUT_DISPLAY_INVERTED_MONOCHROMATIC_MESH_TEST";
const std::string kOrcaTestTimeoutDisplayMonochromaticMeshTest = "ORCA_TEST_TIMEOUT_DISPLAY_MONOCHROMATIC_MESH_TEST";
const std::string kOrcaTestTimeoutDisplayRedPurityTest = "ORCA_TEST_TIMEOUT_DISPLAY_RED_PURITY_TEST";
const std::string kOrcaTestTimeoutDisplaySharpnessTest = "ORCA_TEST_TIMEOUT_DISPLAY_SHARPNESS_TEST";
const std::string kOrcaTestTimeoutDisplayWhitePurityTest = "ORCA_TEST_TIMEOUT_DISPLAY_WHITE_PURITY_TEST";
const std::string kOrcaTestTimeoutFingerprintRecognitionTest = "ORCA_TEST_TIMEOUT_FINGERPRINT_RECOGNITION_TEST";
const std::string kOrcaTestTimeoutMouseClickTest = "ORCA_TEST_TIMEOUT_MOUSE_CLICK_TEST";
const std::string kOrcaTestTimeoutMousePrecisionTest = "ORCA_TEST_TIMEOUT_MOUSE_PRECISION_TEST";
const std::string kOrcaTestTimeoutMousePressPrecisionTest = "ORCA_TEST_TIMEOUT_MOUSE_PRESS_PRECISION_TEST";
const std::string kOrcaTestTimeoutSensorsLidClosureTest = "ORCA_TEST_TIMEOUT_SENSORS_LID_CLOSURE_TEST";
const std::string kOrcaTestTimeoutTouchpadClickTest = "ORCA_TEST_TIMEOUT_TOUCHPAD_CLICK_TEST";
const std::string kOrcaTestTimeoutTouchpadPrecisionTest = "ORCA_TEST_TIMEOUT_TOUCHPAD_PRECISION_TEST";
const std::string kOrcaTestTimeoutTouchpadPressPrecisionTest = "ORCA_TEST_TIMEOUT_TOUCHPAD_PRESS_PRECISION_TEST";
const std::string kOrcaTestTimeoutTouchscreenAccuracyTest = "ORCA_TEST_TIMEOUT_TOUCHSCREEN_ACCURACY_TEST";
const std::string kOrcaTestTimeoutTouchscreenBasicTouchTest = "ORCA_TEST_TIMEOUT_TOUCHSCREEN_BASIC_TOUCH_TEST";
const std::string kOrcaTestTimeoutTouchscreenDiagonalTest = "ORCA_TEST_TIMEOUT_TOUCHSCREEN_DIAGONAL_TEST";
const std::string kOrcaTestTimeoutTouchscreenGridTest = "ORCA_TEST_TIMEOUT_TOUCHSCREEN_GRID_TEST";
const std::string kOrcaTestTimeoutTouchscreenMultiTouchTest = "ORCA_TEST_TIMEOUT_TOUCHSCREEN_MULTI_TOUCH_TEST";

/// All time-outs of tests: the general one and the 23 of single tests.
const std::set<std::string> kTestTimeoutKeys = {
    kOrcaTestTimeout,
    kOrcaTestTimeoutCameraCaptureTest,
    kOrcaTestTimeoutDisplayBlackPurityTest,
    kOrcaTestTimeoutDisplayBluePurityTest,
    kOrcaTestTimeoutDisplayColorTransitionTest,
    kOrcaTestTimeoutDisplayGreenPurityTest,
    kOrcaTestTimeoutDisplayInvertedMonochromaticMeshTest,
    kOrcaTestTimeoutDisplayMonochromaticMeshTest,
    kOrcaTestTimeoutDisplayRedPurityTest,
    kOrcaTestTimeoutDisplaySharpnessTest,
    kOrcaTestTimeoutDisplayWhitePurityTest,
    kOrcaTestTimeoutFingerprintRecognitionTest,
    kOrcaTestTimeoutMouseClickTest,
    kOrcaTestTimeoutMousePrecisionTest,
    kOrcaTestTimeoutMousePressPrecisionTest,
    kOrcaTestTimeoutSensorsLidClosureTest,
    kOrcaTestTimeoutTouchpadClickTest,
    kOrcaTestTimeoutTouchpadPrecisionTest,
    kOrcaTestTimeoutTouchpadPressPrecisionTest,
    kOrcaTestTimeoutTouchscreenAccuracyTest,
    kOrcaTestTimeoutTouchscreenBasicTouchTest,
    kOrcaTestTimeoutTouchscreenDiagonalTest,
    kOrcaTestTimeoutTouchscreenGridTest,
    kOrcaTestTimeoutTouchscreenMultiTouchTest,
};

}  // namespace settings_keys
