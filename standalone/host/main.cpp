// module_host: loads the camera module as a diagnostics program does, finds the cameras and runs tests on them.

#include <QApplication>
#include <QFont>
#include <QMessageBox>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <memory>

#include "standalone/host/console/command_line.h"
#include "standalone/host/console/console.h"
#include "standalone/host/console/exit_codes.h"
#include "standalone/host/host_error.h"
#include "standalone/host/language.h"
#include "standalone/host/program.h"
#include "standalone/host/system/library_search.h"

namespace {

// A program without windows must run without a display: this decides before Qt looks for one.
bool wantsWindows(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  try {
    return CommandLine::parse(arguments).ui;
  } catch (const HostError&) {
    return false;
  }
}

// Who opened the program's window may not see a console.
void showError(const QString& sentence) {
  printError(sentence);
  if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
  QMessageBox box(QMessageBox::Critical, QCoreApplication::applicationName(), sentence, QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

QtMessageHandler defaultMessageHandler = nullptr;

// Wine lacks these two functions, and nothing depends on them: the user is not to read about them.
void dropRemarksOfWine(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (!text.contains(QLatin1String("SetProcessDpiAwareness")) &&
      !text.contains(QLatin1String("EnableNonClientDpiScaling"))) {
    defaultMessageHandler(type, context, text);
  }
}

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("module_host"));
  QCoreApplication::setOrganizationName(QStringLiteral("module_camera"));
  QCoreApplication::setApplicationVersion(QStringLiteral(PROJECT_VERSION));
  if (!wantsWindows(argc, argv)) return std::make_unique<QCoreApplication>(argc, argv);
  auto application = std::make_unique<QApplication>(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QFont font;
  font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Segoe UI")});
  font.setPointSize(10);
  QApplication::setFont(font);
  return application;
}

// What nothing catches, and what Qt cannot go on with: a status of its own, as that of the C library is one of ours.
[[noreturn]] void endOnCrash() {
  std::_Exit(kExitCrash);
}

}  // namespace

int main(int argc, char** argv) {
  std::set_terminate(&endOnCrash);
  std::signal(SIGABRT, [](int) { endOnCrash(); });
  prepareProcess();
  defaultMessageHandler = qInstallMessageHandler(&dropRemarksOfWine);
  const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  useLanguage(CommandLine::languageOf(arguments));
  CommandLine line;
  try {
    line = CommandLine::parse(arguments);
    return runProgram(line);
  } catch (const HostError& error) {
    line.task == CommandLine::Task::kWindow ? showError(error.sentence()) : printError(error.sentence());
    const bool isFault = dynamic_cast<const ModuleFault*>(&error) || dynamic_cast<const ReportError*>(&error);
    return isFault ? kExitFault : kExitUsage;
  }
}
