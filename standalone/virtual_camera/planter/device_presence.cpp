#include "standalone/virtual_camera/planter/device_presence.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "standalone/virtual_camera/planter/device_broadcast.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "standalone/virtual_camera/planter/registry_key.h"

namespace {

int countAt(const wchar_t* key, const QString& symbolicLink) {
  return static_cast<int>(readNumber(key, symbolicLink.toStdWString().c_str()).value_or(0));
}

void setCount(const wchar_t* key, const QString& symbolicLink, int count) {
  RegistryKey(key).setNumber(symbolicLink.toStdWString().c_str(), static_cast<DWORD>(count));
}

}  // namespace

bool isPluggedIn(const QString& symbolicLink) {
  return readNumber(interfaceControlKey(symbolicLink.toStdWString()), kLinked) == DWORD{1};
}

int arrivalOf(const QString& symbolicLink) {
  return std::max(0, countAt(kArrivalsKey, symbolicLink));
}

QString setPluggedIn(const QString& symbolicLink, bool pluggedIn) {
  const std::wstring link = symbolicLink.toStdWString();
  const std::wstring key = interfaceControlKey(link);
  const auto linked = readNumber(key, kLinked);
  if (!linked && pluggedIn) return QStringLiteral("The camera %1 is not planted.").arg(symbolicLink);
  if (!linked || *linked == DWORD{pluggedIn}) return {};
  try {
    const int arrivals = std::abs(countAt(kArrivalsKey, symbolicLink));
    setCount(kArrivalsKey, symbolicLink, pluggedIn ? arrivals + 1 : -arrivals);
    RegistryKey(key).setNumber(kLinked, DWORD{pluggedIn});
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
  const int count = openCount(symbolicLink) + 1;
  setCount(kOpensKey, symbolicLink, count);
  return count;
}

int openCount(const QString& symbolicLink) {
  return countAt(kOpensKey, symbolicLink);
}
