#include "benchmarks/planting.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <stdexcept>

#include "discovery/camera_component.h"
#include "module/identifiers.h"
#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/planter/device_planter.h"

QJsonObject cameraOf(const QString& name, QSize size, const QJsonObject& more) {
  QJsonObject camera{{"name", name},
                     {"connection", "usb"},
                     {"manufacturer", "Meridian"},
                     {"description", "USB Video Device"},
                     {"hardwareId", "USB\\VID_1BCF&PID_2C99&REV_1001"},
                     {"driverVersion", "10.0.19041.1"},
                     {"width", size.width()},
                     {"height", size.height()}};
  for (auto member = more.begin(); member != more.end(); ++member) camera[member.key()] = member.value();
  return camera;
}

QJsonObject silentCamera(double afterSeconds, QSize size, const QJsonObject& more) {
  QJsonObject camera = cameraOf(QStringLiteral("Camera"), size, more);
  camera["faults"] = QJsonArray{QJsonObject{{"kind", "stall"}, {"at", afterSeconds}}};
  return camera;
}

Planting::Planting(const QJsonArray& cameras) {
  const QString path = QDir::toNativeSeparators(folder.filePath(QStringLiteral("cameras.json")));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("the description of the cameras cannot be written");
  file.write(QJsonDocument(QJsonObject{{"cameras", cameras}}).toJson());
  file.close();
  const CameraFile described = readCameraFile(path);
  const QString error = described.error.isEmpty() ? plantCameras(described.cameras, path) : described.error;
  if (!error.isEmpty()) throw std::runtime_error(error.toStdString());
}

Planting::~Planting() {
  static_cast<void>(unplantCameras());
}

FoundCamera::FoundCamera(const QJsonObject& camera) : planting({camera}), manager(kComponentManagerId) {
  manager.refresh();
  found = dynamic_cast<CameraComponent*>(manager.getComponent(0));
  if (!found) throw std::runtime_error("the module does not find the virtual camera");
  devicePath = found->getCameraInfo().devicePath;
}
