#include "standalone/virtual_camera/planter/device_planter.h"

#include <windows.h>

#include <string>
#include <system_error>
#include <vector>

#include "standalone/virtual_camera/description/camera_identity.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "standalone/virtual_camera/planter/device_presence.h"
#include "standalone/virtual_camera/planter/registry_key.h"

namespace {

// Driver keys are numbered within their setup class; Wine's own begin at 0.
constexpr unsigned kFirstDriverNumber = 9000;

const wchar_t* setupClassGuid(SetupClass setupClass) {
  switch (setupClass) {
    case SetupClass::kCamera:
      return L"{ca3e7ab9-b4c3-4ae6-8251-579ef933890f}";
    case SetupClass::kImage:
      return L"{6bdd1fc6-810f-11d0-bec7-08002be2092f}";
    case SetupClass::kMedia:
      return L"{4d36e96c-e325-11ce-bfc1-08002be10318}";
  }
  return L"";
}

// One camera's keys below HKEY_LOCAL_MACHINE.
struct DeviceKeys {
  std::wstring instanceId;
  std::wstring symbolicLink;
  std::wstring driver;  // relative to the list of setup classes

  std::wstring device;
  std::wstring interfaceKey;
  std::wstring driverKey;
};

DeviceKeys keysOf(const CameraDescription& camera, std::size_t position) {
  const std::wstring control = L"SYSTEM\\CurrentControlSet\\Control\\";
  const CameraIdentity identity = identityOf(camera, position);
  DeviceKeys keys;
  keys.instanceId = identity.instanceId.toStdWString();
  keys.symbolicLink = identity.symbolicLink.toStdWString();
  keys.driver =
      std::wstring(setupClassGuid(camera.setupClass)) + L'\\' + std::to_wstring(kFirstDriverNumber + position);
  keys.device = L"SYSTEM\\CurrentControlSet\\Enum\\" + keys.instanceId;
  keys.driverKey = control + L"Class\\" + keys.driver;
  keys.interfaceKey = interfaceKey(keys.symbolicLink);
  return keys;
}

void setUnlessEmpty(RegistryKey& key, const wchar_t* name, const QString& text) {
  if (!text.isEmpty()) key.setText(name, text.toStdWString());
}

void plant(const CameraDescription& camera, const DeviceKeys& keys) {
  RegistryKey driver(keys.driverKey);
  setUnlessEmpty(driver, L"DriverVersion", camera.driverVersion);

  RegistryKey device(keys.device);
  device.setText(L"ClassGUID", setupClassGuid(camera.setupClass));
  device.setText(L"Driver", keys.driver);
  // Always there: without it a reader turns to SetupDiGetDeviceInterfacePropertyW, which Wine does not have and which
  // would end its process.
  device.setText(L"FriendlyName", camera.name.toStdWString());
  setUnlessEmpty(device, L"DeviceDesc", camera.description);
  setUnlessEmpty(device, L"Mfg", camera.manufacturer);
  if (!camera.hardwareId.isEmpty()) device.setTexts(L"HardwareID", {camera.hardwareId.toStdWString()});

  RegistryKey(keys.interfaceKey).setText(L"DeviceInstance", keys.instanceId);
  RegistryKey(keys.interfaceKey + L"\\#").setText(L"SymbolicLink", keys.symbolicLink);
  RegistryKey(interfaceControlKey(keys.symbolicLink)).setNumber(kLinked, 0);
}

QString deleteTree(const std::wstring& path) {
  const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, path.c_str());
  if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND) return {};
  return QStringLiteral("The registry key HKLM\\%1 cannot be deleted: error %2.")
      .arg(QString::fromStdWString(path))
      .arg(status);
}

QString setAllPluggedIn(const std::vector<std::wstring>& links, bool pluggedIn) {
  for (const std::wstring& link : links) {
    if (QString error = setPluggedIn(QString::fromStdWString(link), pluggedIn); !error.isEmpty()) return error;
  }
  return {};
}

}  // namespace

QString plantCameras(std::span<const CameraDescription> cameras, const QString& descriptionPath) {
  const PresenceLock lock;
  if (QString error = unplantCameras(); !error.isEmpty()) return error;
  std::vector<DeviceKeys> devices;
  std::vector<std::wstring> keys;
  std::vector<std::wstring> links;
  for (std::size_t i = 0; i < cameras.size(); ++i) {
    devices.push_back(keysOf(cameras[i], i));
    keys.insert(keys.end(), {devices[i].device, devices[i].interfaceKey, devices[i].driverKey});
    links.push_back(devices[i].symbolicLink);
  }
  QString error;
  try {
    // The record first: what is written after it can always be found and removed again.
    RegistryKey record(kPlantRecordKey);
    record.setTexts(kPlantRecordKeys, keys);
    record.setTexts(kPlantRecordLinks, links);
    for (std::size_t i = 0; i < cameras.size(); ++i) plant(cameras[i], devices[i]);
    record.setText(kPlantRecordDescription, descriptionPath.toStdWString());
    error = setAllPluggedIn(links, true);
  } catch (const std::system_error& failure) {
    error = QStringLiteral("The cameras cannot be planted: %1.").arg(QString::fromStdString(failure.what()));
  }
  if (!error.isEmpty()) static_cast<void>(unplantCameras());
  return error;
}

QString unplantCameras() {
  const PresenceLock lock;
  QString error = setAllPluggedIn(readTexts(kPlantRecordKey, kPlantRecordLinks), false);
  for (const std::wstring& key : readTexts(kPlantRecordKey, kPlantRecordKeys)) {
    if (QString failure = deleteTree(key); !failure.isEmpty()) return failure;
  }
  if (QString failure = deleteTree(kPlantRecordKey); !failure.isEmpty()) return failure;
  return error;
}
