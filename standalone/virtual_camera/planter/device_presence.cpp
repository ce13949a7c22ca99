#include "standalone/virtual_camera/planter/device_presence.h"

#include <windows.h>

#include <cstdlib>
#include <system_error>

#include "standalone/virtual_camera/planter/device_broadcast.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "standalone/virtual_camera/planter/registry_key.h"

PresenceLock::PresenceLock() : mutex(CreateMutexW(nullptr, FALSE, L"module_camera.virtual_cameras")) {
  WaitForSingleObject(mutex, INFINITE);
}

PresenceLock::~PresenceLock() {
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

bool isPluggedIn(const QString& symbolicLink) {
  return readNumber(interfaceControlKey(symbolicLink.toStdWString()), kLinked) == DWORD{1};
}

int arrivalOf(const QString& symbolicLink) {
  return static_cast<int>(readNumber(kArrivalsKey, symbolicLink.toStdWString().c_str()).value_or(0));
}

QString setPluggedIn(const QString& symbolicLink, bool pluggedIn) {
  const std::wstring link = symbolicLink.toStdWString();
  const std::wstring key = interfaceControlKey(link);
  const PresenceLock lock;
  const auto linked = readNumber(key, kLinked);
  if (!linked && pluggedIn) return QStringLiteral("The camera %1 is not planted.").arg(symbolicLink);
  if (!linked || *linked == DWORD{pluggedIn}) return {};
  try {
    RegistryKey control(key, RegistryKey::Missing::kFails);
    const int arrivals = std::abs(arrivalOf(symbolicLink));
    RegistryKey(kArrivalsKey).setNumber(link.c_str(), static_cast<DWORD>(pluggedIn ? arrivals + 1 : -arrivals));
    control.setNumber(kLinked, DWORD{pluggedIn});
  } catch (const std::system_error& error) {
    return QStringLiteral("The camera cannot be %1: %2.")
        .arg(pluggedIn ? QStringLiteral("plugged in") : QStringLiteral("unplugged"),
             QString::fromStdString(error.what()));
  }
  const unsigned long error = broadcastDeviceChange(pluggedIn ? DeviceChange::kArrival : DeviceChange::kRemoval, link);
  if (error == 0) return {};
  return QStringLiteral("Programs could not be told of the camera: Wine's plug-and-play service answers error %1.")
      .arg(error);
}

int countOpen(const QString& symbolicLink) {
  const PresenceLock lock;
  const int count = openCount(symbolicLink) + 1;
  RegistryKey(interfaceControlKey(symbolicLink.toStdWString()), RegistryKey::Missing::kFails)
      .setNumber(kOpens, static_cast<DWORD>(count));
  return count;
}

int openCount(const QString& symbolicLink) {
  return static_cast<int>(readNumber(interfaceControlKey(symbolicLink.toStdWString()), kOpens).value_or(0));
}
