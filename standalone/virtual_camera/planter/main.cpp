#include <windows.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cstdio>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/planter/device_planter.h"

namespace {

enum ExitCode { Done = 0, Failed = 1, BadUsage = 2 };

constexpr const char* kUsage =
    "Usage: virtual_camera plant FILE   plants the cameras that FILE (JSON) describes, in place of those planted "
    "before\n"
    "       virtual_camera unplant      removes the planted cameras\n"
    "       virtual_camera --help       prints this text\n";

int report(const QString& error, ExitCode code) {
  if (error.isEmpty()) return Done;
  std::fprintf(stderr, "%s\n", error.toUtf8().constData());
  return code;
}

// On Windows the keys of devices belong to the system, and a camera in them that is not there would stay.
bool runsUnderWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

int plant(const QString& path) {
  const CameraFile file = readCameraFile(path);
  if (!file.error.isEmpty()) return report(file.error, Failed);
  return report(plantCameras(file.cameras, QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())), Failed);
}

}  // namespace

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments == QStringList{QStringLiteral("--help")}) {
    std::fputs(kUsage, stdout);
    return Done;
  }
  if (!runsUnderWine()) {
    return report(QStringLiteral("Virtual cameras are made for Wine; on Windows, connect a camera."), Failed);
  }
  if (arguments == QStringList{QStringLiteral("unplant")}) return report(unplantCameras(), Failed);
  if (arguments.size() == 2 && arguments.first() == QStringLiteral("plant")) return plant(arguments.last());
  return report(
      QStringLiteral("These arguments are not understood: \"%1\"; allowed are plant FILE, unplant and --help.")
          .arg(arguments.join(QLatin1Char(' '))),
      BadUsage);
}
