#include "standalone/virtual_camera/planter/planted_cameras.h"

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/description/camera_identity.h"
#include "standalone/virtual_camera/planter/device_keys.h"
#include "standalone/virtual_camera/planter/registry_key.h"

PlantedCameras plantedCameras() {
  const std::vector<std::wstring> path = readTexts(kPlantRecordKey, kPlantRecordDescription);
  if (path.empty()) return {};
  CameraFile file = readCameraFile(QString::fromStdWString(path.front()), FileCheck::kNone);
  PlantedCameras planted{{}, file.error};
  for (std::size_t i = 0; i < file.cameras.size(); ++i) {
    const QString link = identityOf(file.cameras[i], i).symbolicLink;
    planted.cameras.push_back({std::move(file.cameras[i]), link});
  }
  return planted;
}
