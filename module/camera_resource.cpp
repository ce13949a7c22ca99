#include "module/camera_resource.h"

#include "module/identifiers.h"
#include "module/keys/camera_keys.h"
#include "module/keys/family_constants.h"

CameraResource::CameraResource(const ItemId& itemId) : Resource(itemId) {
  nameKey = camera_keys::kCamera;
  code = family_constants::kCameraModuleCode;
  diagnosticAliases = {{kCameraDiagnosticId, {"Q", "quick", 2}}};
  testAliases = {{kCaptureTestId, {"c", "capture", 2}}, {kBarcodeTestId, {"b", "barcode", 2}}};
  helpText =
      "Camera Module help:\n"
      "  Usage: QuillonDiagnosticsCLI -Mcamera [diagnostic]\"[test(s)]\" [device id(s)]\n"
      " Tests:\n"
      "   c, capture\t\t\tCamera Capture Test*\n"
      "   b, barcode\t\t\tCamera Barcode Test*\n"
      "\n   * Test not supported on CLI\n";
}

std::string CameraResource::diagnosticNameKey(const ItemId& itemId) {
  return itemId.key == kCameraDiagnosticId.key ? camera_keys::kQuickCamera : std::string();
}

std::string CameraResource::testNameKey(const ItemId& itemId) {
  if (itemId.key == kCaptureTestId.key) return camera_keys::kCameraCaptureTest;
  if (itemId.key == kBarcodeTestId.key) return camera_keys::kCameraBarcodeTest;
  return {};
}

std::string CameraResource::diagnosticDescriptionKey(const ItemId& itemId) {
  return itemId.key == kCameraDiagnosticId.key ? camera_keys::kQuickCameraTestsTooltip : std::string();
}

std::string CameraResource::testDescriptionKey(const ItemId& itemId) {
  if (itemId.key == kCaptureTestId.key) return camera_keys::kCameraCaptureTestDescription;
  if (itemId.key == kBarcodeTestId.key) return camera_keys::kCameraBarcodeTestDescription;
  return {};
}
