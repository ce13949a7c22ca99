// The three functions by which a host gets at the module, and the one place that knows all of its parts.

#include <memory>
#include <vector>

#include "discovery/camera_component_manager.h"
#include "module/camera_module_interface.h"
#include "module/camera_resource.h"
#include "module/diagnostic.h"
#include "module/identifiers.h"
#include "module/product_version.h"
#include "module/test_with_device_hint.h"
#include "tests/camera_barcode_test.h"
#include "tests/camera_capture_test.h"

namespace {

// Built and released by one thread of the host, and never while a test runs.
ModuleInterface* singleton = nullptr;

}  // namespace

extern "C" {

/// The module; built on the first call. The host never frees it but calls ReleaseModuleInterfaceInstance.
ModuleInterface* GetModuleInterfaceInstance() {
  if (singleton) return singleton;

  // Whatever throws below leaves nothing behind and no module set.
  auto captureTest = std::make_unique<TestWithDeviceHint<CameraCaptureTest>>(kCaptureTestId);
  auto barcodeTest = std::make_unique<TestWithDeviceHint<CameraBarcodeTest>>(kBarcodeTestId);
  auto diagnostic =
      std::make_unique<Diagnostic>(kCameraDiagnosticId, std::vector<Test*>{captureTest.get(), barcodeTest.get()});
  auto resource = std::make_unique<CameraResource>(kResourceId);
  resource->setNumberedTexts({{0, "0 - 1"}, {1, ""}, {2, ""}});
  auto manager = std::make_unique<CameraComponentManager>(kComponentManagerId);
  singleton = new CameraModuleInterface({diagnostic.get()}, resource.get(), manager.get(), nullptr);

  static_cast<void>(captureTest.release());
  static_cast<void>(barcodeTest.release());
  static_cast<void>(diagnostic.release());
  static_cast<void>(resource.release());
  static_cast<void>(manager.release());
  return singleton;
}

/// Deletes the module and all of its parts. The order is part of the contract: resource, component manager, each
/// diagnostic's tests, the diagnostic, the module; and every part is asked of the module afresh.
void ReleaseModuleInterfaceInstance() {
  if (!singleton) return;
  delete singleton->getResource();
  delete singleton->getComponentManager();
  for (std::uint32_t i = 0; i < singleton->diagnosticCount(); ++i) {
    for (std::uint32_t j = 0; j < singleton->diagnosticAt(i)->testCount(); ++j)
      delete singleton->diagnosticAt(i)->testAt(j);
    delete singleton->diagnosticAt(i);
  }
  delete singleton;
  singleton = nullptr;
}

/// The version of the product, for as long as the process lives.
ProductVersion* GetProductVersion() {
  static ProductVersion version(4, 42, 0, 92);
  return &version;
}

}  // extern "C"
