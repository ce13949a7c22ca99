// A module that fails as the environment variable BROKEN_MODULE says.

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "module/exports.h"
#include "module/product_version.h"
#include "unit_tests/standalone/fake_module.h"

namespace {

FakeModule fake;
std::shared_ptr<ModuleInterface> face;

bool fails(std::string_view how) {
  const char* wanted = std::getenv("BROKEN_MODULE");
  return wanted && wanted == how;
}

}  // namespace

extern "C" {

__declspec(dllexport) ModuleInterface* GetModuleInterfaceInstance() {
  if (fails("null")) return nullptr;
  if (fails("throw")) throw std::runtime_error("bad day");
  if (fails("no-resource")) fake.givenResource = nullptr;
  if (fails("no-manager")) fake.givenManager = nullptr;
  fake.capture.onRun = [](TestExecutionContext&) -> TestResult {
    if (fails("run")) throw std::runtime_error("bad run");
    return 77;
  };
  face = fake.interface();
  return face.get();
}

__declspec(dllexport) void ReleaseModuleInterfaceInstance() {
  face.reset();
}

__declspec(dllexport) ProductVersion* GetProductVersion() {
  return nullptr;
}
}
