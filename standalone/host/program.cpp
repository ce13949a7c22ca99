#include "standalone/host/program.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "standalone/host/console/command_line.h"
#include "standalone/host/console/console.h"
#include "standalone/host/console/exit_codes.h"
#include "standalone/host/console/job_selection.h"
#include "standalone/host/host_error.h"
#include "standalone/host/new_file.h"
#include "standalone/host/reports/report_files.h"
#include "standalone/host/reports/run_json.h"
#include "standalone/host/session/session.h"
#include "standalone/host/system/device_changes.h"
#include "standalone/host/system/module_library.h"
#include "standalone/host/window/main_window.h"
#include "standalone/host/window/settings_dialog.h"
#include "standalone/host/window/user_interaction.h"

namespace {

using Task = CommandLine::Task;

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(Program)
};

// Standard output belongs to the JSON that is written there: people read standard error then.
std::FILE* streamForPeople(const CommandLine& line) {
  if (line.quiet) return nullptr;
  return line.reports.jsonFile == QLatin1String("-") ? stderr : stdout;
}

int showVersion() {
  Console(stdout, {})
      .print(QStringLiteral("module_host %1, Qt %2")
                 .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion())));
  return kExitPassed;
}

std::unique_ptr<Session> openSession(const CommandLine& line, TestUser* user) {
  LoadedModule module = loadModule(line.moduleFile);
  const Versions versions{QCoreApplication::applicationVersion(), module.version, QString::fromLatin1(qVersion())};
  auto session = std::make_unique<Session>(std::move(module.interface), versions, line.interference, user);
  const QString& word = session->catalogue().word;
  if (!line.module.isEmpty() && line.module != word)
    throw HostError(Texts::tr("There is no module \"%1\"; this host has: %2.").arg(line.module, word));
  return session;
}

int showHelp(const CommandLine& line) {
  Console console(stdout, {});
  if (!line.module.isEmpty()) {
    const std::unique_ptr<Session> session = openSession(line, nullptr);
    console.print(session->catalogue().help);
  }
  console.print(CommandLine::optionHelp());
  return kExitPassed;
}

void findCameras(Session& session) {
  session.rescan();
  session.waitUntilIdle();
  if (!session.scanFault().isEmpty()) throw ModuleFault(session.scanFault());
}

QByteArray camerasAsJson(const QList<Camera>& cameras) {
  QJsonArray list;
  for (const Camera& camera : cameras) list.append(cameraJson(camera));
  return QJsonDocument(list).toJson();
}

int listCameras(const CommandLine& line) {
  Console console(streamForPeople(line), line.logFile);
  const std::unique_ptr<Session> session = openSession(line, nullptr);
  findCameras(*session);
  if (!line.reports.jsonFile.isEmpty()) {
    writeReport(line.reports.jsonFile, camerasAsJson(session->cameras()));
    if (line.reports.jsonFile == QLatin1String("-")) return kExitPassed;
  }
  if (session->cameras().isEmpty()) console.print(Texts::tr("No camera was found."));
  for (const Camera& camera : session->cameras()) console.printCamera(camera);
  return kExitPassed;
}

QList<Job> repeated(const QList<Job>& jobs, int times) {
  QList<Job> all;
  for (int i = 0; i < times; ++i) all += jobs;
  return all;
}

int exitCode(const Session& session, qsizetype wanted) {
  const auto& runs = session.runs();
  const auto has = [](TestResult result) { return [result](const Run& run) { return run.result == result; }; };
  if (std::ranges::any_of(runs, [](const Run& run) { return run.ending == Ending::kFault; })) return kExitFault;
  if (std::ranges::any_of(runs, has(kTestFailed))) return kExitTestFailed;
  const bool isComplete = static_cast<qsizetype>(runs.size()) == wanted;
  return isComplete && std::ranges::all_of(runs, has(kTestPassed)) ? kExitPassed : kExitNotAllPassed;
}

// What the command line does not say is as it is in `settings`.
void takeSettings(Session& session, const CommandLine& line, RunSettings settings = {}) {
  if (line.timeout) settings.timeout = line.timeout;
  if (!line.operatorName.isEmpty()) settings.operatorName = line.operatorName;
  settings.serialNumber = line.serialNumber;
  session.setSettings(settings);
  session.setPictureFolder(line.picturesFolder.isEmpty() ? line.reports.folder : line.picturesFolder);
}

void saveWindow(QWidget& window, Session& session, const Run& run, const QString& folder) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  window.grab().save(&buffer, "PNG");
  try {
    writeNewFile(QDir(folder), fileStem(run) + QStringLiteral("_window"), QStringLiteral("png"), png);
  } catch (const HostError& error) {
    emit session.reportFailed(error.sentence());
  }
}

// After each run, beside the pictures of the test's own windows.
void savePictures(MainWindow& window, Session& session, const QString& folder) {
  if (folder.isEmpty()) return;
  QObject::connect(&session, &Session::runFinished, &window,
                   [&, folder](const Run& run) { saveWindow(window, session, run, folder); });
}

int runTests(const CommandLine& line) {
  Console console(streamForPeople(line), line.logFile);
  const auto user = line.ui ? std::make_unique<UserInteraction>(line.answer) : nullptr;
  const std::unique_ptr<Session> session = openSession(line, user.get());
  takeSettings(*session, line);
  findCameras(*session);
  for (const Camera& camera : session->cameras()) console.printCamera(camera);
  const QList<Job> jobs = repeated(selectJobs(*session, line.words), line.repeat);

  console.observe(*session);
  const auto window = line.ui ? std::make_unique<MainWindow>(*session, MainWindow::Use::kForTheseRuns) : nullptr;
  if (window) savePictures(*window, *session, line.picturesFolder);
  ReportFiles reports(*session, line.reports);
  QObject::connect(&reports, &ReportFiles::failed, &printError);
  if (window) window->show();
  session->start(jobs);
  session->waitUntilIdle();
  return reports.hasFailed() ? kExitFault : exitCode(*session, jobs.size());
}

int openWindow(const CommandLine& line) {
  Console console(streamForPeople(line), line.logFile);
  UserInteraction user(line.answer);
  const std::unique_ptr<Session> session = openSession(line, &user);
  takeSettings(*session, line, rememberedSettings());
  console.observe(*session);
  MainWindow window(*session, MainWindow::Use::kInteractive);
  savePictures(window, *session, line.picturesFolder);
  ReportWishes wishes = line.reports;
  if (wishes.folder.isEmpty()) wishes.folder = rememberedReportFolder();
  ReportFiles reports(*session, wishes);
  QObject::connect(&reports, &ReportFiles::failed, &printError);
  QObject::connect(&reports, &ReportFiles::failed, &window, &MainWindow::showFault);
  QObject::connect(&window, &MainWindow::reportFolderChanged, &reports, &ReportFiles::setFolder);
  QObject::connect(&window, &MainWindow::closed, QCoreApplication::instance(), &QCoreApplication::quit);
  const DeviceChanges devices(window.winId());
  QObject::connect(&devices, &DeviceChanges::changed, session.get(), &Session::rescan);
  window.show();
  session->rescan();
  QCoreApplication::exec();
  return reports.hasFailed() ? kExitFault : kExitPassed;
}

}  // namespace

int runProgram(const CommandLine& line) {
  switch (line.task) {
    case Task::kHelp:
      return showHelp(line);
    case Task::kVersion:
      return showVersion();
    case Task::kConvert:
      convertReport(line.recordFile, line.reports);
      return kExitPassed;
    case Task::kList:
      return listCameras(line);
    case Task::kRun:
      return runTests(line);
    case Task::kWindow:
      break;
  }
  return openWindow(line);
}
