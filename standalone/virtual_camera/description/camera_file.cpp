#include "standalone/virtual_camera/description/camera_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <array>

#include "standalone/virtual_camera/description/json_object_reader.h"
#include "standalone/virtual_camera/description/picture_reader.h"

namespace {

template <class Enum>
using Word = JsonObjectReader::Word<Enum>;

constexpr std::array kConnectionWords{Word<Connection>{"usb", Connection::kUsb},
                                      Word<Connection>{"display", Connection::kBuiltIn}};
constexpr std::array kSetupClassWords{Word<SetupClass>{"camera", SetupClass::kCamera},
                                      Word<SetupClass>{"image", SetupClass::kImage},
                                      Word<SetupClass>{"media", SetupClass::kMedia}};
constexpr std::array kStrideWords{Word<Stride>{"positive", Stride::kPositive},
                                  Word<Stride>{"negative", Stride::kNegative}, Word<Stride>{"absent", Stride::kAbsent}};
constexpr std::array kFaultWords{Word<FaultKind>{"no-open", FaultKind::kNoOpen},
                                 Word<FaultKind>{"not-rgb32", FaultKind::kNotRgb32},
                                 Word<FaultKind>{"first-read-fails", FaultKind::kFirstReadFails},
                                 Word<FaultKind>{"stall", FaultKind::kStall},
                                 Word<FaultKind>{"tick", FaultKind::kTick},
                                 Word<FaultKind>{"end-of-stream", FaultKind::kEndOfStream},
                                 Word<FaultKind>{"removed", FaultKind::kRemoved},
                                 Word<FaultKind>{"invalidated", FaultKind::kInvalidated},
                                 Word<FaultKind>{"error", FaultKind::kError},
                                 Word<FaultKind>{"size-change", FaultKind::kSizeChange}};

constexpr NumberRange kLengthRange{64, 4096};
constexpr NumberRange kRateRange{1, 240};
constexpr NumberRange kTimeRange{0, 86400};
constexpr qsizetype kMostCameras = 64;

QSize readSize(const JsonObjectReader& reader) {
  return {reader.integer("width", kLengthRange), reader.integer("height", kLengthRange)};
}

Fault readFault(const JsonObjectReader& reader) {
  Fault fault;
  fault.kind = reader.word("kind", wordsOf(kFaultWords));
  switch (fault.kind) {
    case FaultKind::kNoOpen:
    case FaultKind::kNotRgb32:
    case FaultKind::kFirstReadFails:
      reader.allowOnly({"kind"});
      return fault;
    case FaultKind::kStall:
      reader.allowOnly({"kind", "at", "seconds"});
      fault.duration = reader.number("seconds", kTimeRange, fault.duration);
      break;
    case FaultKind::kSizeChange:
      reader.allowOnly({"kind", "at", "width", "height"});
      fault.size = readSize(reader);
      break;
    case FaultKind::kTick:
    case FaultKind::kEndOfStream:
    case FaultKind::kRemoved:
    case FaultKind::kInvalidated:
    case FaultKind::kError:
      reader.allowOnly({"kind", "at"});
      break;
  }
  fault.at = reader.number("at", kTimeRange);
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
  camera.connection = reader.word("connection", wordsOf(kConnectionWords));
  camera.hardwareId = reader.text("hardwareId", QString());
  camera.driverVersion = reader.text("driverVersion", QString());
  camera.setupClass = reader.word("setupClass", wordsOf(kSetupClassWords), std::optional(SetupClass::kCamera));
  camera.size = readSize(reader);
  camera.framesPerSecond = reader.number("framesPerSecond", kRateRange, 30.0);
  camera.stride = reader.word("stride", wordsOf(kStrideWords), std::optional(Stride::kPositive));
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
  if (list.size() > kMostCameras) {
    throw JsonContentError(
        QStringLiteral("cameras holds %1 cameras; allowed are at most %2").arg(list.size()).arg(kMostCameras));
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
