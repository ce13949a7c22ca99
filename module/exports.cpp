// The one place that knows all parts of the module.

#include "module/exports.h"

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

// The order is required: resource, component manager, each diagnostic's tests, the diagnostic, the module; and every
// part is asked of the module afresh. Until the last line the module therefore points to deleted parts.
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

ProductVersion* GetProductVersion() {
  // Not the version of the file. Static data: the first call only registers the destructor.
  constinit static ProductVersion version(4, 42, 0, 92);
  return &version;
}
