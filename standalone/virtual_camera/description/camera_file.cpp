#include "standalone/virtual_camera/description/camera_file.h"

#include <algorithm>
#include <array>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include "standalone/virtual_camera/description/json_object_reader.h"
#include "standalone/virtual_camera/description/picture_reader.h"

namespace {

template <class Enum>
using Word = JsonObjectReader::Word<Enum>;

constexpr std::array connectionWords{Word<Connection>{"usb", Connection::Usb},
                                     Word<Connection>{"display", Connection::BuiltIn}};
constexpr std::array setupClassWords{Word<SetupClass>{"camera", SetupClass::Camera},
                                     Word<SetupClass>{"image", SetupClass::Image},
                                     Word<SetupClass>{"media", SetupClass::Media}};
constexpr std::array strideWords{Word<Stride>{"positive", Stride::Positive}, Word<Stride>{"negative", Stride::Negative},
                                 Word<Stride>{"absent", Stride::Absent}};
constexpr std::array faultWords{Word<FaultKind>{"no-open", FaultKind::NoOpen},
                                Word<FaultKind>{"not-rgb32", FaultKind::NotRgb32},
                                Word<FaultKind>{"first-read-fails", FaultKind::FirstReadFails},
                                Word<FaultKind>{"stall", FaultKind::Stall},
                                Word<FaultKind>{"tick", FaultKind::Tick},
                                Word<FaultKind>{"end-of-stream", FaultKind::EndOfStream},
                                Word<FaultKind>{"removed", FaultKind::Removed},
                                Word<FaultKind>{"invalidated", FaultKind::Invalidated},
                                Word<FaultKind>{"error", FaultKind::Error},
                                Word<FaultKind>{"size-change", FaultKind::SizeChange}};

constexpr NumberRange lengthRange{64, 4096};
constexpr NumberRange rateRange{1, 240};
constexpr NumberRange timeRange{0, 86400};
constexpr qsizetype mostCameras = 64;

QSize readSize(const JsonObjectReader& reader) {
  return {reader.integer("width", lengthRange), reader.integer("height", lengthRange)};
}

Fault readFault(const JsonObjectReader& reader) {
  Fault fault;
  fault.kind = reader.word("kind", wordsOf(faultWords));
  switch (fault.kind) {
    case FaultKind::NoOpen:
    case FaultKind::NotRgb32:
    case FaultKind::FirstReadFails:
      reader.allowOnly({"kind"});
      return fault;
    case FaultKind::Stall:
      reader.allowOnly({"kind", "at", "seconds"});
      fault.duration = reader.number("seconds", timeRange, fault.duration);
      break;
    case FaultKind::SizeChange:
      reader.allowOnly({"kind", "at", "width", "height"});
      fault.size = readSize(reader);
      break;
    case FaultKind::Tick:
    case FaultKind::EndOfStream:
    case FaultKind::Removed:
    case FaultKind::Invalidated:
    case FaultKind::Error:
      reader.allowOnly({"kind", "at"});
      break;
  }
  fault.at = reader.number("at", timeRange);
  return fault;
}

CameraDescription readCamera(const JsonObjectReader& reader, const QString& place, const QDir& folder) {
  reader.allowOnly({"name", "manufacturer", "description", "connection", "hardwareId", "driverVersion", "setupClass",
                    "width", "height", "framesPerSecond", "stride", "picture", "faults"});
  CameraDescription camera;
  camera.name = reader.text("name");
  if (camera.name.trimmed().isEmpty()) throw JsonContentError(reader.pathOf("name") + QStringLiteral(" is blank"));
  camera.manufacturer = reader.text("manufacturer", QString());
  camera.description = reader.text("description", QString());
  camera.connection = reader.word("connection", wordsOf(connectionWords));
  camera.hardwareId = reader.text("hardwareId", QString());
  camera.driverVersion = reader.text("driverVersion", QString());
  camera.setupClass = reader.word("setupClass", wordsOf(setupClassWords), std::optional(SetupClass::Camera));
  camera.size = readSize(reader);
  camera.framesPerSecond = reader.number("framesPerSecond", rateRange, 30.0);
  camera.stride = reader.word("stride", wordsOf(strideWords), std::optional(Stride::Positive));
  if (reader.has("picture")) camera.picture = readPicture(reader.child("picture"), folder);

  const QJsonArray faults = reader.list("faults", false);
  for (qsizetype i = 0; i < faults.size(); ++i) {
    camera.faults.push_back(readFault({faults.at(i), QStringLiteral("%1.faults[%2]").arg(place).arg(i)}));
  }
  std::ranges::stable_sort(camera.faults, {}, &Fault::at);
  return camera;
}

std::vector<CameraDescription> readCameras(const QJsonValue& root, const QDir& folder) {
  const JsonObjectReader reader(root, QString());
  reader.allowOnly({"cameras"});
  const QJsonArray list = reader.list("cameras", true);
  if (list.size() > mostCameras) {
    throw JsonContentError(
        QStringLiteral("cameras holds %1 cameras; allowed are at most %2").arg(list.size()).arg(mostCameras));
  }
  std::vector<CameraDescription> cameras;
  for (qsizetype i = 0; i < list.size(); ++i) {
    const QString place = QStringLiteral("cameras[%1]").arg(i);
    cameras.push_back(readCamera({list.at(i), place}, place, folder));
  }
  return cameras;
}

QString sentence(const QString& path, const QString& text) {
  return QStringLiteral("%1: %2.").arg(QDir::toNativeSeparators(path), text);
}

}  // namespace

CameraFile readCameraFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return {{}, sentence(path, QStringLiteral("the file cannot be read"))};
  }
  return parseCameraFile(file.readAll(), path);
}

CameraFile parseCameraFile(const QByteArray& json, const QString& path) {
  QJsonParseError fault;
  const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
  if (fault.error != QJsonParseError::NoError) {
    const QByteArray before = json.left(fault.offset);
    return {{},
            sentence(path, QStringLiteral("line %1, column %2 is not valid JSON (%3)")
                               .arg(before.count('\n') + 1)
                               .arg(before.size() - before.lastIndexOf('\n'))
                               .arg(fault.errorString()))};
  }
  try {
    const QJsonValue root = document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    return {readCameras(root, QFileInfo(path).absoluteDir()), QString()};
  } catch (const JsonContentError& error) {
    return {{}, sentence(path, QString::fromUtf8(error.what()))};
  }
}
