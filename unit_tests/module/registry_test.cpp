#include <gtest/gtest.h>

#include "module/camera_module_interface.h"
#include "module/diagnostic.h"
#include "module/identifiers.h"
#include "module/test_with_device_hint.h"
#include "tests/camera_barcode_test.h"
#include "tests/camera_capture_test.h"

TEST(Registry, TestsAreFoundByPlaceAndByIdentifier) {
  TestWithDeviceHint<CameraCaptureTest> capture(kCaptureTestId);
  TestWithDeviceHint<CameraBarcodeTest> barcode(kBarcodeTestId);
  Diagnostic diagnostic(kCameraDiagnosticId, {&capture, &barcode});

  EXPECT_EQ(diagnostic.getId().key, kCameraDiagnosticId.key);
  EXPECT_EQ(diagnostic.testCount(), 2u);
  EXPECT_EQ(diagnostic.testAt(0), &capture);
  EXPECT_EQ(diagnostic.testAt(1), &barcode);
  EXPECT_EQ(diagnostic.testAt(2), nullptr);
  EXPECT_EQ(diagnostic.findTest(ItemId(17, 1, 2)), &barcode);
  EXPECT_EQ(diagnostic.findTest(ItemId(17, 2, 2)), nullptr);
  EXPECT_EQ(Diagnostic(kCameraDiagnosticId, {}).findTest(kBarcodeTestId), nullptr);
}

TEST(Registry, TheModuleHandsOutItsPartsAndNoExtras) {
  Diagnostic diagnostic(kCameraDiagnosticId, {});
  int reserved = 0;
  CameraModuleInterface module({&diagnostic}, nullptr, nullptr, &reserved);
  EXPECT_EQ(module.diagnosticCount(), 1u);
  EXPECT_EQ(module.diagnosticAt(0), &diagnostic);
  EXPECT_EQ(module.diagnosticAt(1), nullptr);
  EXPECT_EQ(module.extraCount(), 0u);
  EXPECT_EQ(module.extraAt(0), nullptr);
  EXPECT_EQ(module.getReserved(), &reserved);
  EXPECT_TRUE(module.isInteractive());
  EXPECT_FALSE(ModuleInterface({}, nullptr, nullptr, nullptr).isInteractive());
}
