// module_host: loads the camera module as a diagnostics program does, finds the cameras and runs tests on them.

#include <QApplication>
#include <QFont>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <string_view>

#include "standalone/host/console.h"
#include "standalone/host/diagnostics_program.h"
#include "standalone/host/host_error.h"
#include "standalone/host/library_search.h"

namespace {

constexpr int kUsageExitCode = 2;

// A program without windows must run without a display: this decides before Qt looks for one.
bool wantsWindows(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](const char* word) { return std::string_view(word) == "--ui"; });
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
  if (!wantsWindows(argc, argv)) {
    return std::make_unique<QCoreApplication>(argc, argv);
  }
  auto application = std::make_unique<QApplication>(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QFont font;
  font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Segoe UI")});
  font.setPointSize(10);
  QApplication::setFont(font);
  return application;
}

}  // namespace

int main(int argc, char** argv) {
  prepareProcess();
  defaultMessageHandler = qInstallMessageHandler(&dropRemarksOfWine);
  const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
  QTranslator translator;
  if (translator.load(QStringLiteral("module_host_en"),
                      QCoreApplication::applicationDirPath() + QStringLiteral("/translations"))) {
    QCoreApplication::installTranslator(&translator);
  }
  try {
    return runDiagnostics(QCoreApplication::arguments());
  } catch (const HostError& error) {
    printError(error.sentence());
    return kUsageExitCode;
  }
}
