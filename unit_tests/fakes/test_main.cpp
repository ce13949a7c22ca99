// The main function of every test program: a Qt application, a crash that is seen as a failure, and no unexpected Qt
// warning.

#include <QApplication>
#include <QString>

#include <cstdio>
#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

#ifdef _WIN32
// A crash under Wine may end with exit code 0 or hang in a dialog.
constexpr unsigned kCrashExitCode = 70;

LONG WINAPI endOnCrash(EXCEPTION_POINTERS* exception) {
  std::fprintf(stderr, "unhandled exception 0x%08lx\n", exception->ExceptionRecord->ExceptionCode);
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), kCrashExitCode);
  return EXCEPTION_EXECUTE_HANDLER;
}
#endif

// A mistyped signature of a string-based connect shows only as a warning at run time.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The platform plug-ins' remarks about the machine are not the program's fault.
  for (const char* remark :
       {"QStandardPaths:", "XDG_RUNTIME_DIR", "SetProcessDpiAwareness", "EnableNonClientDpiScaling",
        "Unable to open default", "propagateSizeHints", "This plugin does not support"}) {
    if (text.contains(QLatin1String(remark))) return;
  }
  ADD_FAILURE() << "Qt warned: " << text.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  SetUnhandledExceptionFilter(endOnCrash);
#endif
  testing::InitGoogleMock(&argc, argv);
  qInstallMessageHandler(failOnWarning);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
