#include "module/camera_resource.h"

#include "module/identifiers.h"
#include "module/keys/camera_keys.h"
#include "module/keys/module_codes.h"

namespace {

// The name of the host's command-line program.
const std::string kCommandLineProgram = "QuillonDiagnosticsCLI";

}  // namespace

CameraResource::CameraResource(const ItemId& itemId) : Resource(itemId) {
  nameKey = kCamera;
  code = kModuleCodeCamera;
  diagnosticAliases = {{kCameraDiagnosticId, {"Q", "quick", 2}}};
  testAliases = {{kCaptureTestId, {"c", "capture", 2}}, {kBarcodeTestId, {"b", "barcode", 2}}};
  helpText =
      "Camera Module help:\n"
      "  Usage: " +
      kCommandLineProgram +
      " -Mcamera [diagnostic]\"[test(s)]\" [device id(s)]\n"
      " Tests:\n"
      "   c, capture\t\t\tCamera Capture Test*\n"
      "   b, barcode\t\t\tCamera Barcode Test*\n"
      "\n   * Test not supported on CLI\n";
}

CameraResource::~CameraResource() = default;

std::string CameraResource::diagnosticNameKey(const ItemId& itemId) {
  return itemId.key == kCameraDiagnosticId.key ? kQuickCamera : std::string();
}

std::string CameraResource::testNameKey(const ItemId& itemId) {
  if (itemId.key == kCaptureTestId.key) return kCameraCaptureTest;
  if (itemId.key == kBarcodeTestId.key) return kCameraBarcodeTest;
  return {};
}

std::string CameraResource::diagnosticDescriptionKey(const ItemId& itemId) {
  return itemId.key == kCameraDiagnosticId.key ? kQuickCameraTestsTooltip : std::string();
}

std::string CameraResource::testDescriptionKey(const ItemId& itemId) {
  if (itemId.key == kCaptureTestId.key) return kCameraCaptureTestDescription;
  if (itemId.key == kBarcodeTestId.key) return kCameraBarcodeTestDescription;
  return {};
}
