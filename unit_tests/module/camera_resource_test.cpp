#include "module/camera_resource.h"

#include <gtest/gtest.h>

#include "module/identifiers.h"

TEST(CameraResource, NamesAndDescribesWhatItKnowsAndNothingElse) {
  CameraResource resource(kResourceId);
  EXPECT_EQ(resource.getNameKey(), "CAMERA");
  EXPECT_EQ(resource.getCode(), "CA");
  EXPECT_EQ(resource.diagnosticNameKey(kCameraDiagnosticId), "QUICK_CAMERA");
  EXPECT_EQ(resource.diagnosticDescriptionKey(kCameraDiagnosticId), "QUICK_CAMERA_TESTS_TOOLTIP");
  EXPECT_EQ(resource.testNameKey(kCaptureTestId), "CAMERA_CAPTURE_TEST");
  EXPECT_EQ(resource.testNameKey(kBarcodeTestId), "CAMERA_BARCODE_TEST");
  EXPECT_EQ(resource.testDescriptionKey(kCaptureTestId), "CAMERA_CAPTURE_TEST_DESCRIPTION");
  EXPECT_EQ(resource.testDescriptionKey(kBarcodeTestId), "CAMERA_BARCODE_TEST_DESCRIPTION");

  EXPECT_EQ(resource.diagnosticNameKey(kCaptureTestId), "");
  EXPECT_EQ(resource.diagnosticDescriptionKey(kResourceId), "");
  EXPECT_EQ(resource.testNameKey(kCameraDiagnosticId), "");
  EXPECT_EQ(resource.testDescriptionKey(ItemId(17, 1, 3)), "");
}

TEST(CameraResource, GivesTheCommandLineItsWordsAndHelp) {
  CameraResource resource(kResourceId);
  EXPECT_EQ(resource.getHelpText(),
            "Camera Module help:\n"
            "  Usage: QuillonDiagnosticsCLI -Mcamera [diagnostic]\"[test(s)]\" [device id(s)]\n"
            " Tests:\n"
            "   c, capture\t\t\tCamera Capture Test*\n"
            "   b, barcode\t\t\tCamera Barcode Test*\n"
            "\n   * Test not supported on CLI\n");

  const auto tests = resource.getTestAliases();
  ASSERT_EQ(tests.size(), 2u);
  EXPECT_EQ(tests.begin()->first.key, kCaptureTestId.key);
  EXPECT_EQ(tests.begin()->second.shortAlias, "c");
  EXPECT_EQ(tests.begin()->second.longAlias, "capture");
  EXPECT_EQ(tests.at(kBarcodeTestId).shortAlias, "b");
  EXPECT_EQ(tests.at(kBarcodeTestId).longAlias, "barcode");
  EXPECT_EQ(tests.at(kBarcodeTestId).aliasCount, 2u);

  const auto diagnostics = resource.getDiagnosticAliases();
  ASSERT_EQ(diagnostics.size(), 1u);
  EXPECT_EQ(diagnostics.at(kCameraDiagnosticId).shortAlias, "Q");
  EXPECT_EQ(diagnostics.at(kCameraDiagnosticId).longAlias, "quick");
}

TEST(CameraResource, NumberedTextsAreReplaced) {
  CameraResource resource(kResourceId);
  EXPECT_TRUE(resource.getNumberedTexts().empty());
  resource.setNumberedTexts({{7, "seven"}});
  const std::map<std::int32_t, std::string> texts = {{0, "0 - 1"}, {1, ""}, {2, ""}};
  resource.setNumberedTexts(texts);
  EXPECT_EQ(resource.getNumberedTexts(), texts);
}
