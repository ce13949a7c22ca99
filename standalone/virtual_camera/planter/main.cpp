#include <windows.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <array>
#include <cstdio>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/planter/camera_choice.h"
#include "standalone/virtual_camera/planter/device_planter.h"
#include "standalone/virtual_camera/planter/device_presence.h"
#include "standalone/virtual_camera/planter/planted_cameras.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kBadUsage = 2 };

void print(FILE* stream, const QString& line) {
  std::fprintf(stream, "%s\n", line.toUtf8().constData());
}

int report(const QString& error) {
  if (error.isEmpty()) return kDone;
  print(stderr, error);
  return kFailed;
}

int plant(const QString& path) {
  const CameraFile file = readCameraFile(path);
  if (!file.error.isEmpty()) return report(file.error);
  return report(plantCameras(file.cameras, QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())));
}

int unplant(const QString&) {
  return report(unplantCameras());
}

int setChosenPluggedIn(const QString& name, bool pluggedIn) {
  const PlantedCameras planted = plantedCameras();
  if (!planted.error.isEmpty()) return report(planted.error);
  const CameraChoice choice = chooseCamera(planted.cameras, name);
  if (!choice.error.isEmpty()) return report(choice.error);
  return report(setPluggedIn(planted.cameras[choice.position].symbolicLink, pluggedIn));
}

int plug(const QString& name) {
  return setChosenPluggedIn(name, true);
}

int unplug(const QString& name) {
  return setChosenPluggedIn(name, false);
}

int list(const QString&) {
  const PlantedCameras planted = plantedCameras();
  if (planted.cameras.empty() && planted.error.isEmpty()) print(stdout, QStringLiteral("No camera is planted."));
  for (std::size_t i = 0; i < planted.cameras.size(); ++i) {
    const auto& [camera, link] = planted.cameras[i];
    print(stdout, QStringLiteral("%1: %2 (%3, opens: %4)")
                      .arg(i)
                      .arg(camera.name, isPluggedIn(link) ? QStringLiteral("plugged in") : QStringLiteral("unplugged"))
                      .arg(openCount(link)));
  }
  return report(planted.error);
}

int check(const QString& path) {
  const CameraFile file = readCameraFile(path, FileCheck::kImages);
  if (!file.error.isEmpty()) return report(file.error);
  print(stdout,
        QStringLiteral("%1: in order, %2 camera(s).").arg(QDir::toNativeSeparators(path)).arg(file.cameras.size()));
  return kDone;
}

struct Command {
  const char* name;
  const char* argument;  // null when it takes none
  const char* purpose;
  int (*run)(const QString& argument);
  bool needsWine = true;
};

constexpr std::array kCommands{
    Command{"plant", "FILE", "plants the cameras that FILE (JSON) describes, in place of those planted before", plant},
    Command{"unplant", nullptr, "removes the planted cameras", unplant},
    Command{"plug", "NAME", "plugs a planted camera in; programs that run are told", plug},
    Command{"unplug", "NAME", "unplugs a planted camera; programs that run are told", unplug},
    Command{"list", nullptr, "prints the planted cameras and whether they are plugged in", list},
    Command{"check", "FILE", "says whether FILE describes cameras, and else what is wrong", check, false}};

QString formOf(const Command& command) {
  const QString name = QString::fromLatin1(command.name);
  return command.argument ? name + QLatin1Char(' ') + QLatin1String(command.argument) : name;
}

void printUsage() {
  QString lead = QStringLiteral("Usage: ");
  for (const Command& command : kCommands) {
    print(stdout, QStringLiteral("%1virtual_camera %2 %3")
                      .arg(lead, formOf(command).leftJustified(12), QString::fromLatin1(command.purpose)));
    lead.fill(QLatin1Char(' '));
  }
  print(stdout, QStringLiteral("A NAME may also be the number that `list` prints."));
}

int refuseUsage(const QStringList& arguments) {
  QStringList allowed;
  for (const Command& command : kCommands) allowed << formOf(command);
  print(stderr, QStringLiteral("These arguments are not understood: \"%1\"; allowed are %2 and --help.")
                    .arg(arguments.join(QLatin1Char(' ')), allowed.join(QStringLiteral(", "))));
  return kBadUsage;
}

// On Windows the keys of devices belong to the system, and a camera in them that is not there would stay.
bool runsUnderWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  if (arguments == QStringList{QStringLiteral("--help")}) {
    printUsage();
    return kDone;
  }
  for (const Command& command : kCommands) {
    if (arguments.value(0) != QLatin1String(command.name)) continue;
    if (arguments.size() != (command.argument ? 2 : 1)) break;
    if (command.needsWine && !runsUnderWine()) {
      return report(QStringLiteral("Virtual cameras are made for Wine; on Windows, connect a camera."));
    }
    return command.run(arguments.value(1));
  }
  return refuseUsage(arguments);
}
