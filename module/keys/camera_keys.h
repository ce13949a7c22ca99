#pragma once

// String keys that the camera module exchanges with the host, which translates them. Keys are compared by text.

#include <string>

namespace camera_keys {

inline constexpr char kCamera[] = "CAMERA";
inline constexpr char kQuickCamera[] = "QUICK_CAMERA";
inline constexpr char kQuickCameraTestsTooltip[] = "QUICK_CAMERA_TESTS_TOOLTIP";
inline constexpr char kCameraCaptureTest[] = "CAMERA_CAPTURE_TEST";
inline constexpr char kCameraCaptureTestDescription[] = "CAMERA_CAPTURE_TEST_DESCRIPTION";
inline constexpr char kCameraBarcodeTest[] = "CAMERA_BARCODE_TEST";
inline constexpr char kCameraBarcodeTestDescription[] = "CAMERA_BARCODE_TEST_DESCRIPTION";

// Properties of a camera component. UDI is the unique device identifier.
inline constexpr char kUdi[] = "UDI";
inline constexpr char kCameraDescription[] = "CAMERA_DESCRIPTION";
inline constexpr char kCameraManufacturer[] = "CAMERA_MANUFACTURER";
inline constexpr char kCameraHardwareId[] = "CAMERA_HARDWARE_ID";
inline constexpr char kCameraType[] = "CAMERA_TYPE";
inline constexpr char kDriverVersion[] = "DRIVER_VERSION";
inline constexpr char kCameraVendor[] = "CAMERA_VENDOR";

// The hint that a failed test leaves last, and its two halves.
inline constexpr char kPossibleDefectiveComponents[] = "POSSIBLE_DEFECTIVE_COMPONENTS";
inline constexpr char kCameraDevice[] = "CAMERA_DEVICE";
inline const std::string kFailureHint = std::string(kPossibleDefectiveComponents) + ": " + kCameraDevice;

// Result messages of the tests.
inline constexpr char kDeviceNotIdentified[] =
    "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED";
inline constexpr char kCannotAccessDevice[] = "CANNOT_ACCESS_DEVICE";
inline constexpr char kFailedToInitialize[] = "FAILED_TO_INITIALIZE";
inline constexpr char kFailedToCapture[] = "FAILED_TO_CAPTURE";
inline constexpr char kFailedToCaptureDeviceWasRemoved[] = "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED";
inline constexpr char kFailedToCaptureDueTimeout[] = "FAILED_TO_CAPTURE_DUE_TIMEOUT";
inline constexpr char kTestAbortedByEvent[] = "TEST_ABORTED_BY_EVENT";
inline constexpr char kCameraResultFailed[] = "CAMERA_RESULT_FAILED";
inline constexpr char kBarcodeValue[] = "BARCODE_VALUE";
inline constexpr char kBarcodeFailScanMessage[] = "BARCODE_FAIL_SCAN_MESSAGE";
inline constexpr char kBarcodeCanceledDueInvalidInput[] = "BARCODE_CANCELED_DUE_INVALID_INPUT";

}  // namespace camera_keys
