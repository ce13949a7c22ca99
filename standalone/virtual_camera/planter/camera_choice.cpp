#include "standalone/virtual_camera/planter/camera_choice.h"

#include <QStringList>

namespace {

QString listed(const std::vector<PlantedCamera>& cameras, const std::vector<std::size_t>& positions) {
  QStringList texts;
  for (const std::size_t i : positions) {
    texts << QStringLiteral("%1 \"%2\"").arg(i).arg(cameras[i].description.name);
  }
  return texts.join(QStringLiteral(", "));
}

}  // namespace

CameraChoice chooseCamera(const std::vector<PlantedCamera>& cameras, const QString& name) {
  std::vector<std::size_t> all;
  std::vector<std::size_t> named;
  for (std::size_t i = 0; i < cameras.size(); ++i) {
    all.push_back(i);
    if (cameras[i].description.name.compare(name, Qt::CaseInsensitive) == 0) named.push_back(i);
  }
  bool isNumber = false;
  const qulonglong number = name.toULongLong(&isNumber);
  if (isNumber && number < cameras.size()) return {number, {}};
  if (named.size() == 1) return {named.front(), {}};
  if (named.size() > 1) {
    return {0, QStringLiteral("Several cameras are called \"%1\"; give the number of one: %2.")
                   .arg(name, listed(cameras, named))};
  }
  if (cameras.empty()) return {0, QStringLiteral("There is no camera \"%1\": no camera is planted.").arg(name)};
  return {0, QStringLiteral("There is no camera \"%1\"; there are %2.").arg(name, listed(cameras, all))};
}
