#pragma once

#include <QList>
#include <QString>

#include <memory>
#include <vector>

#include "module/test.h"
#include "standalone/host/session/run.h"

class ExecutionContext;
class ModuleInterface;
class SystemComponent;

/// Calls a module, and lets nothing out that it throws: a fault comes back as a sentence, which is empty where there is
/// none. Its operations are not called at the same time.
class ModuleRunner {
 public:
  struct Catalogue {
    /// The module's word on the command line, and its text for the command line's help.
    QString word;
    QString help;
    /// In the module's order.
    QList<TestDescription> tests;
    QString fault;
  };
  struct Scan {
    QList<Camera> cameras;
    QString fault;
  };
  struct Outcome {
    TestResult result = kTestError;
    QString remark;
    bool isFault = false;
  };

  /// `module` may be null, which is a fault of every operation.
  explicit ModuleRunner(std::shared_ptr<ModuleInterface> module);

  Catalogue catalogue() const;
  /// Looks for cameras anew. After a fault none is known.
  Scan scan();
  /// Runs a test on a camera of the last scan, which becomes the context's component.
  Outcome run(const Camera& camera, const TestDescription& test, const TestSettings& settings,
              ExecutionContext& context);

 private:
  struct Found {
    Camera camera;
    SystemComponent* component;
  };

  std::shared_ptr<ModuleInterface> module;
  std::vector<Found> found;
};
