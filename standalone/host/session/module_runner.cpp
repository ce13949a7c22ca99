#include "standalone/host/session/module_runner.h"

#include <QCoreApplication>

#include <algorithm>
#include <exception>
#include <tuple>
#include <utility>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "module/diagnostic.h"
#include "module/keys/camera_keys.h"
#include "module/module_interface.h"
#include "module/resource.h"
#include "standalone/host/host_error.h"
#include "standalone/host/session/execution_context.h"

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ModuleRunner)
};

// The sentence about what `call` threw; empty when it threw nothing.
template <class Call>
QString faultOf(const char* doing, Call call) {
  try {
    call();
    return {};
  } catch (const HostError& error) {
    return error.sentence();
  } catch (const std::exception& error) {
    return Texts::tr("The module failed while it was %1: %2").arg(Texts::tr(doing), QString::fromUtf8(error.what()));
  } catch (...) {
    return Texts::tr("The module failed while it was %1, and did not say why.").arg(Texts::tr(doing));
  }
}

template <class Part>
Part& present(Part* part, const char* complaint) {
  if (!part) throw HostError(Texts::tr(complaint));
  return *part;
}

ModuleInterface& present(const std::shared_ptr<ModuleInterface>& module) {
  return present(module.get(), QT_TRANSLATE_NOOP("ModuleRunner", "The module gave no interface."));
}

QString text(const std::string& value) {
  return QString::fromStdString(value);
}

Camera describe(SystemComponent& component) {
  const ComponentDescription description = component.getDescription();
  Camera camera;
  camera.number = text(component.getId());
  camera.name = text(description.name);
  for (const auto& [key, value] : description.properties) {
    camera.properties.append({text(key), text(value)});
    if (key == camera_keys::kUdi) camera.uniqueId = text(value);
  }
  return camera;
}

// The long and the short word of an item; none for an item without.
std::pair<QString, QString> words(const std::map<ItemId, AliasEntry>& aliases, const ItemId& id) {
  const auto found = aliases.find(id);
  if (found == aliases.end()) return {};
  return {text(found->second.longAlias), text(found->second.shortAlias)};
}

TestDescription describe(Diagnostic& diagnostic, Test& test, Resource& resource) {
  const ItemId group = diagnostic.getId();
  TestDescription description;
  description.id = test.id;
  std::tie(description.word, description.shortWord) = words(resource.getTestAliases(), test.id);
  std::tie(description.diagnosticWord, description.diagnosticShortWord) = words(resource.getDiagnosticAliases(), group);
  description.name = text(resource.testNameKey(test.id));
  description.description = text(resource.testDescriptionKey(test.id));
  description.diagnostic = text(resource.diagnosticNameKey(group));
  description.isImplemented = test.isImplemented();
  return description;
}

// Calls `visit` with each diagnostic and each of its tests.
template <class Visit>
void forEachTest(ModuleInterface& module, Visit visit) {
  for (std::uint32_t i = 0; i < module.diagnosticCount(); ++i) {
    Diagnostic& diagnostic = present(
        module.diagnosticAt(i), QT_TRANSLATE_NOOP("ModuleRunner", "The module lacks a diagnostic that it counts."));
    for (std::uint32_t j = 0; j < diagnostic.testCount(); ++j) {
      visit(diagnostic, present(diagnostic.testAt(j),
                                QT_TRANSLATE_NOOP("ModuleRunner", "The module lacks a test that it counts.")));
    }
  }
}

Test& findTest(ModuleInterface& module, const ItemId& id) {
  Test* wanted = nullptr;
  forEachTest(module, [&](Diagnostic&, Test& test) {
    if (!wanted && test.id.key == id.key) wanted = &test;
  });
  return present(wanted, QT_TRANSLATE_NOOP("ModuleRunner", "The module no longer has this test."));
}

bool isKnown(TestResult result) {
  constexpr TestResult kKnown[] = {kTestPassed,    kTestFailed, kTestNotPerformed,
                                   kTestCancelled, kTestError,  kTestNotSupported};
  return std::ranges::count(kKnown, result) > 0;
}

}  // namespace

ModuleRunner::ModuleRunner(std::shared_ptr<ModuleInterface> moduleInterface) : module(std::move(moduleInterface)) {}

ModuleRunner::Catalogue ModuleRunner::catalogue() const {
  Catalogue catalogue;
  catalogue.fault = faultOf(QT_TRANSLATE_NOOP("ModuleRunner", "telling its tests"), [&] {
    Resource& resource = present(present(module).getResource(),
                                 QT_TRANSLATE_NOOP("ModuleRunner", "The module tells no names of its tests."));
    catalogue.word = text(resource.getNameKey()).toLower();
    catalogue.help = text(resource.getHelpText());
    forEachTest(*module, [&](Diagnostic& diagnostic, Test& test) {
      catalogue.tests.append(describe(diagnostic, test, resource));
    });
  });
  return catalogue;
}

ModuleRunner::Scan ModuleRunner::scan() {
  // Whatever happens below: components of the scan before may be gone.
  found.clear();
  std::vector<Found> now;
  const QString fault = faultOf(QT_TRANSLATE_NOOP("ModuleRunner", "looking for cameras"), [&] {
    // What the camera module calls its component manager is always one of these.
    auto& manager = static_cast<CameraComponentManager&>(
        present(present(module).getComponentManager(),
                QT_TRANSLATE_NOOP("ModuleRunner", "The module cannot look for cameras.")));
    manager.refresh();
    for (std::uint32_t i = 0; i < manager.getComponentCount(); ++i) {
      SystemComponent& component = present(
          manager.getComponent(i), QT_TRANSLATE_NOOP("ModuleRunner", "The module lacks a camera that it counts."));
      now.push_back({describe(component), &component});
    }
  });
  if (fault.isEmpty()) found = std::move(now);
  Scan scan{{}, fault};
  for (const Found& entry : found) scan.cameras.append(entry.camera);
  return scan;
}

ModuleRunner::Outcome ModuleRunner::run(const Camera& camera, const TestDescription& test, const TestSettings& settings,
                                        ExecutionContext& context) {
  const auto entry = std::ranges::find_if(
      found, [&](const Found& candidate) { return candidate.camera.identity() == camera.identity(); });
  if (entry == found.end()) return {kTestNotPerformed, Texts::tr("The camera is no longer connected."), false};

  context.setComponent(*entry->component);
  Outcome outcome;
  const QString fault = faultOf(QT_TRANSLATE_NOOP("ModuleRunner", "running the test"), [&] {
    Test& wanted = findTest(present(module), test.id);
    if (!wanted.isImplemented()) {
      outcome = {kTestNotSupported, Texts::tr("The module does not have this test yet."), false};
    } else if (!wanted.isApplicable(entry->component)) {
      outcome = {kTestNotPerformed, Texts::tr("This test does not apply to this camera."), false};
    } else if (!wanted.configure(settings, 0)) {
      throw HostError(Texts::tr("The module refused its settings."));
    } else {
      outcome.result = wanted.run(&context);
    }
  });
  if (!fault.isEmpty()) return {kTestError, fault, true};
  if (!isKnown(outcome.result)) {
    return {kTestError, Texts::tr("The module gave the result %1, which has no meaning.").arg(outcome.result), true};
  }
  return outcome;
}
