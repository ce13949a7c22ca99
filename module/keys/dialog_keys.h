#pragma once

// String keys of the dialogs' texts, translated in the context "CAMERA", and of the capture test's input requests.

#include <string>

namespace dialog_keys {

const std::string kApplicationName = "APPLICATION_NAME";
/// Also the translation context of all dialog texts.
const std::string kCamera = "CAMERA";
const std::string kCameraCaptureTest = "CAMERA_CAPTURE_TEST";
const std::string kCameraDialogTitle = "CAMERA_DIALOG_TITLE";
const std::string kCameraBarcodeDialogTitle = "CAMERA_BARCODE_DIALOG_TITLE";
const std::string kCameraFailLabel = "CAMERA_FAIL_LABEL";
const std::string kClosePopUp = "CLOSE_POP_UP";
const std::string kFail = "FAIL";
const std::string kInitialMessage = "INITIAL_MESSAGE";
const std::string kCheckCameraImage = "CHECK_CAMERA_IMAGE";
const std::string kCameraPointBarcodeMessage = "CAMERA_POINT_BARCODE_MESSAGE";
const std::string kCameraBarcodeWarning = "CAMERA_BARCODE_WARNING";
const std::string kCameraBarcodeRetryMessage = "CAMERA_BARCODE_RETRY_MESSAGE";

}  // namespace dialog_keys
