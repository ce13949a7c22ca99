#include "standalone/host/diagnostics_program.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <vector>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "module/diagnostic.h"
#include "module/keys/settings_keys.h"
#include "module/module_interface.h"
#include "module/resource.h"
#include "standalone/host/command_line.h"
#include "standalone/host/console.h"
#include "standalone/host/host_error.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/main_window.h"
#include "standalone/host/module_library.h"
#include "standalone/host/pictures.h"
#include "standalone/host/test_runner.h"
#include "standalone/host/test_selection.h"
#include "standalone/host/user_interaction.h"

using namespace std::chrono_literals;

namespace {

constexpr auto kScreenDelay = 200ms;

void checkModuleName(Resource& resource, const QString& name) {
  const QString known = QString::fromStdString(resource.getNameKey()).toLower();
  if (!name.isEmpty() && name != known) {
    throw HostError(QStringLiteral("There is no module \"%1\"; this host has: %2.").arg(name, known));
  }
}

std::vector<SystemComponent*> findCameras(ModuleInterface& module) {
  // What the camera module calls its component manager is always one of these.
  auto& manager = *static_cast<CameraComponentManager*>(module.getComponentManager());
  manager.refresh();
  std::vector<SystemComponent*> cameras;
  for (std::uint32_t i = 0; i < manager.getComponentCount(); ++i) {
    cameras.push_back(manager.getComponent(i));
  }
  return cameras;
}

std::vector<SystemComponent*> selectCameras(const std::vector<SystemComponent*>& found, const QStringList& numbers) {
  if (found.empty()) {
    throw HostError(QStringLiteral("No camera was found."));
  }
  if (numbers.isEmpty()) {
    return found;
  }
  std::vector<SystemComponent*> selected;
  for (const QString& number : numbers) {
    const auto index = number.toULongLong();
    if (index >= found.size()) {
      throw HostError(QStringLiteral("There is no camera %1; the last one is %2.").arg(number).arg(found.size() - 1));
    }
    selected.push_back(found[index]);
  }
  return selected;
}

Test& findTest(ModuleInterface& module, const ItemId& id) {
  for (std::uint32_t i = 0; i < module.diagnosticCount(); ++i) {
    if (Test* test = module.diagnosticAt(i)->findTest(id)) {
      return *test;
    }
  }
  throw HostError(QStringLiteral("The module names a test that it does not have."));
}

// Every test gets the settings, also those that will not run: a wrong time-out is told whatever is selected.
void configureTests(ModuleInterface& module, const CommandLine& line) {
  TestSettings settings;
  if (line.timeout) {
    settings[settings_keys::kOrca][settings_keys::kOrcaTestTimeoutCameraCaptureTest] = line.timeout->toStdString();
  }
  try {
    for (std::uint32_t i = 0; i < module.diagnosticCount(); ++i) {
      Diagnostic& diagnostic = *module.diagnosticAt(i);
      for (std::uint32_t j = 0; j < diagnostic.testCount(); ++j) {
        static_cast<void>(diagnostic.testAt(j)->configure(settings, 0));  // a wrong value throws
      }
    }
  } catch (const std::invalid_argument&) {
    throw HostError(QStringLiteral("The time-out \"%1\" is not a number of seconds.").arg(line.timeout.value_or("")));
  } catch (const std::out_of_range&) {
    throw HostError(QStringLiteral("The time-out %1 is too large.").arg(line.timeout.value_or("")));
  }
}

std::vector<TestJob> makeJobs(ModuleInterface& module, const CommandLine& line,
                              const std::vector<SystemComponent*>& cameras) {
  Resource& resource = *module.getResource();
  const Aliases tests = resource.getTestAliases();
  const std::vector<ItemId> selected = selectTests(line.tests, resource.getDiagnosticAliases(), tests);
  std::vector<TestJob> jobs;
  for (SystemComponent* camera : selectCameras(cameras, line.cameras)) {
    for (const ItemId& id : selected) {
      jobs.push_back(
          {camera, &findTest(module, id), resource.testNameKey(id), QString::fromStdString(tests.at(id).longAlias)});
    }
  }
  return jobs;
}

// Opened before anything runs, so that a name that cannot be written is told at once.
std::unique_ptr<QFile> openReport(const QString& fileName) {
  if (fileName.isEmpty()) {
    return nullptr;
  }
  auto file = std::make_unique<QFile>(fileName);
  const bool isOpen = fileName == QLatin1String("-") ? file->open(stdout, QIODevice::WriteOnly)
                                                     : file->open(QIODevice::WriteOnly | QIODevice::Truncate);
  if (!isOpen) {
    throw HostError(QStringLiteral("The report %1 could not be written: %2").arg(fileName, file->errorString()));
  }
  return file;
}

// What a window paints comes to the screen a moment later, while events are waited for.
void waitUntilOnScreen() {
  QEventLoop loop;
  QTimer::singleShot(kScreenDelay, &loop, &QEventLoop::quit);
  loop.exec();
}

void showOnWindow(MainWindow& window, TestRunner& runner, const std::vector<TestJob>& jobs, Resource& resource,
                  const Pictures& pictures) {
  const auto job = [&jobs](int index) -> const TestJob& { return jobs[static_cast<std::size_t>(index)]; };
  QObject::connect(&runner, &TestRunner::testStarted, &window, [&window, &resource, job](int index) {
    window.showTest(job(index), keyText(resource.testDescriptionKey(job(index).test->id)));
  });
  QObject::connect(&runner, &TestRunner::progressed, &window, &MainWindow::showProgress);
  QObject::connect(&runner, &TestRunner::messageAdded, &window,
                   [&window](const QString&, const QString& text) { window.showMessage(text); });
  // The next test waits, so that the picture is of this one.
  QObject::connect(
      &runner, &TestRunner::testFinished, &window,
      [&window, &pictures, job](int index, const TestReport& report) {
        window.showVerdict(report);
        waitUntilOnScreen();
        pictures.save(job(index).word + QLatin1Char('-') + QString::fromStdString(report.cameraId) +
                      QStringLiteral("-result"));
      },
      Qt::BlockingQueuedConnection);
  QObject::connect(&window, &MainWindow::closed, &runner, &TestRunner::cancel, Qt::DirectConnection);
  window.show();
}

int runJobs(const std::vector<TestJob>& jobs, const CommandLine& line, Resource& resource, const Pictures& pictures,
            QFile* reportFile) {
  std::vector<TestReport> reports;
  const auto interaction = line.ui ? std::make_unique<UserInteraction>(line.answer, pictures) : nullptr;
  TestRunner runner(jobs, line, interaction.get());
  const Console console(runner, jobs);
  const auto window = line.ui ? std::make_unique<MainWindow>() : nullptr;
  if (window) {
    showOnWindow(*window, runner, jobs, resource, pictures);
  }
  QObject::connect(&runner, &TestRunner::testFinished, &console, [&](int, const TestReport& report) {
    reports.push_back(report);
    if (reportFile) {
      reportFile->write(jsonLine(report));
      reportFile->flush();
    }
  });
  QObject::connect(&runner, &QThread::finished, QCoreApplication::instance(), &QCoreApplication::quit);
  runner.start();
  QCoreApplication::exec();
  runner.wait();
  // The module's dialogs delete themselves through events; they must be gone before the module is unloaded.
  QCoreApplication::sendPostedEvents(nullptr, 0);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  const int code = exitCode(reports);
  return code == 0 && reports.size() < jobs.size() ? kNotAllPassed : code;
}

void printHelp(ModuleInterface& module) {
  printLine(QString::fromStdString(module.getResource()->getHelpText()));
  printLine(CommandLine::optionHelp());
}

}  // namespace

int runDiagnostics(const QStringList& arguments) {
  const CommandLine line = CommandLine::parse(arguments);
  const ModuleLibrary library(line.moduleFile);
  ModuleInterface& module = library.module();
  if (line.help) {
    printHelp(module);
    return 0;
  }
  checkModuleName(*module.getResource(), line.module);
  const Pictures pictures(line.picturesFolder);
  configureTests(module, line);

  const std::vector<SystemComponent*> cameras = findCameras(module);
  const std::vector<TestJob> jobs = line.module.isEmpty() ? std::vector<TestJob>() : makeJobs(module, line, cameras);
  const std::unique_ptr<QFile> reportFile = openReport(line.jsonFile);
  if (cameras.empty()) {
    printLine(QStringLiteral("No camera was found."));
  }
  for (SystemComponent* camera : cameras) {
    printCamera(*camera);
  }
  return jobs.empty() ? 0 : runJobs(jobs, line, *module.getResource(), pictures, reportFile.get());
}
