#pragma once

// String keys that the camera module exchanges with the host, which translates them. Each unit holds its own copies;
// keys are compared by text.

#include <string>

const std::string kCamera = "CAMERA";
const std::string kQuickCamera = "QUICK_CAMERA";
const std::string kQuickCameraTestsTooltip = "QUICK_CAMERA_TESTS_TOOLTIP";
const std::string kCameraCaptureTest = "CAMERA_CAPTURE_TEST";
const std::string kCameraCaptureTestDescription = "CAMERA_CAPTURE_TEST_DESCRIPTION";
const std::string kCameraBarcodeTest = "CAMERA_BARCODE_TEST";
const std::string kCameraBarcodeTestDescription = "CAMERA_BARCODE_TEST_DESCRIPTION";

// Properties of a camera component. UDI is the unique device identifier.
const std::string kUdi = "UDI";
const std::string kCameraDescription = "CAMERA_DESCRIPTION";
const std::string kCameraManufacturer = "CAMERA_MANUFACTURER";
const std::string kCameraHardwareId = "CAMERA_HARDWARE_ID";
const std::string kCameraType = "CAMERA_TYPE";
const std::string kDriverVersion = "DRIVER_VERSION";
const std::string kCameraVendor = "CAMERA_VENDOR";

// The two halves of the hint that is added to a failed test.
const std::string kPossibleDefectiveComponents = "POSSIBLE_DEFECTIVE_COMPONENTS";
const std::string kCameraDevice = "CAMERA_DEVICE";

// Result messages of the tests.
const std::string kDeviceNotIdentified =
    "THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED";
const std::string kCannotAccessDevice = "CANNOT_ACCESS_DEVICE";
const std::string kFailedToInitialize = "FAILED_TO_INITIALIZE";
const std::string kFailedToCapture = "FAILED_TO_CAPTURE";
const std::string kFailedToCaptureDeviceWasRemoved = "FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED";
const std::string kFailedToCaptureDueTimeout = "FAILED_TO_CAPTURE_DUE_TIMEOUT";
const std::string kTestAbortedByEvent = "TEST_ABORTED_BY_EVENT";
const std::string kCameraResultFailed = "CAMERA_RESULT_FAILED";
const std::string kBarcodeValue = "BARCODE_VALUE";
const std::string kBarcodeFailScanMessage = "BARCODE_FAIL_SCAN_MESSAGE";
const std::string kBarcodeCanceledDueInvalidInput = "BARCODE_CANCELED_DUE_INVALID_INPUT";
