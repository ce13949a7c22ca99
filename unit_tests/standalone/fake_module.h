#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "module/diagnostic.h"
#include "module/module_interface.h"
#include "module/resource.h"
#include "module/test.h"

class FakeCamera : public SystemComponent {
 public:
  FakeCamera(std::size_t index, const std::string& identifier) {
    id = std::to_string(index);
    name = "Camera " + identifier;
    properties = {{"UDI", identifier}};
  }
  void* hostObjectAtPlace5() override { return nullptr; }
};

/// Finds the cameras that a test names.
class FakeManager : public CameraComponentManager {
 public:
  FakeManager() : CameraComponentManager(ItemId()) {}

  void refresh() override {
    onRefresh();
    cameras.clear();
    components.clear();
    for (const std::string& identifier : identifiers) {
      cameras.push_back(identifier.empty() ? nullptr : std::make_unique<FakeCamera>(cameras.size(), identifier));
      components.push_back(cameras.back().get());
    }
  }

  /// An empty one is a component that is counted but null.
  std::vector<std::string> identifiers = {"A", "B"};
  std::function<void()> onRefresh = [] {};

 private:
  std::vector<std::unique_ptr<FakeCamera>> cameras;
};

class FakeTest : public Test {
 public:
  using Test::Test;
  bool isApplicable(SystemComponent*) override { return applicable; }
  TestResult run(TestExecutionContext* context) override { return onRun(*context); }
  bool isImplemented() override { return implemented; }
  bool configure(TestSettings settings, std::uint64_t) override {
    configured = settings;
    return accepts;
  }

  std::function<TestResult(TestExecutionContext&)> onRun = [](TestExecutionContext&) { return kTestPassed; };
  TestSettings configured;
  bool applicable = true;
  bool implemented = true;
  bool accepts = true;
};

class FakeResource : public Resource {
 public:
  FakeResource() : Resource(ItemId(17, 0, 0)) {
    nameKey = "CAMERA";
    testAliases = {{ItemId(17, 1, 1), {"c", "capture"}}, {ItemId(17, 1, 2), {"b", "barcode"}}};
    diagnosticAliases = {{ItemId(17, 1, 0), {"Q", "quick"}}};
  }
  std::string diagnosticNameKey(const ItemId&) override { return "QUICK_CAMERA"; }
  std::string testNameKey(const ItemId& item) override { return item.test == 1 ? "CAPTURE" : "BARCODE"; }
  std::string diagnosticDescriptionKey(const ItemId&) override { return "QUICK_CAMERA_TESTS_TOOLTIP"; }
  std::string testDescriptionKey(const ItemId&) override { return "DESCRIPTION"; }
};

/// A module whose parts a test can make fail.
struct FakeModule {
  FakeTest capture{ItemId(17, 1, 1)};
  FakeTest barcode{ItemId(17, 1, 2)};
  std::vector<Test*> tests = {&capture, &barcode};
  Diagnostic diagnostic{ItemId(17, 1, 0), tests};
  FakeResource resource;
  FakeManager manager;
  Resource* givenResource = &resource;
  SystemComponentManager* givenManager = &manager;

  std::shared_ptr<ModuleInterface> interface() {
    return std::make_shared<ModuleInterface>(std::vector<Diagnostic*>{&diagnostic}, givenResource, givenManager,
                                             nullptr);
  }
};
