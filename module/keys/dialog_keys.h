#pragma once

// String keys of the dialogs' texts, translated in the context "CAMERA", and of the capture test's input requests.

#include "module/keys/camera_keys.h"

namespace dialog_keys {

using camera_keys::kCamera;
using camera_keys::kCameraCaptureTest;

inline constexpr char kApplicationName[] = "APPLICATION_NAME";
inline constexpr char kCameraDialogTitle[] = "CAMERA_DIALOG_TITLE";
inline constexpr char kCameraBarcodeDialogTitle[] = "CAMERA_BARCODE_DIALOG_TITLE";
inline constexpr char kCameraFailLabel[] = "CAMERA_FAIL_LABEL";
inline constexpr char kClosePopUp[] = "CLOSE_POP_UP";
inline constexpr char kFail[] = "FAIL";
inline constexpr char kInitialMessage[] = "INITIAL_MESSAGE";
inline constexpr char kCheckCameraImage[] = "CHECK_CAMERA_IMAGE";
inline constexpr char kCameraPointBarcodeMessage[] = "CAMERA_POINT_BARCODE_MESSAGE";
inline constexpr char kCameraBarcodeWarning[] = "CAMERA_BARCODE_WARNING";
inline constexpr char kCameraBarcodeRetryMessage[] = "CAMERA_BARCODE_RETRY_MESSAGE";

}  // namespace dialog_keys
