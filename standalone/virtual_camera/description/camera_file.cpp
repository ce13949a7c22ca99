#include "standalone/virtual_camera/description/camera_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <array>

#include "standalone/virtual_camera/description/fault_reader.h"
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
constexpr std::array kFormatWords{Word<PixelFormat>{"rgb32", PixelFormat::kRgb32},
                                  Word<PixelFormat>{"yuy2", PixelFormat::kYuy2},
                                  Word<PixelFormat>{"nv12", PixelFormat::kNv12}};
constexpr std::array kStrideWords{Word<Stride>{"positive", Stride::kPositive},
                                  Word<Stride>{"negative", Stride::kNegative}, Word<Stride>{"absent", Stride::kAbsent}};

constexpr NumberRange kRateRange{1, 240};
constexpr qsizetype kMostCameras = 1000;

CameraDescription readCamera(const JsonObjectReader& reader, const PictureFiles& files) {
  reader.allowOnly({"name", "manufacturer", "description", "connection", "hardwareId", "driverVersion", "setupClass",
                    "width", "height", "framesPerSecond", "format", "stride", "picture", "faults"});
  CameraDescription camera;
  camera.name = reader.text("name");
  if (camera.name.trimmed().isEmpty()) throw JsonContentError(reader.pathOf("name") + QStringLiteral(" is blank"));
  camera.manufacturer = reader.text("manufacturer", QString());
  camera.description = reader.text("description", QString());
  camera.connection = reader.word("connection", wordsOf(kConnectionWords));
  camera.hardwareId = reader.text("hardwareId", QString());
  camera.driverVersion = reader.text("driverVersion", QString());
  camera.setupClass = reader.word("setupClass", wordsOf(kSetupClassWords), std::optional(SetupClass::kCamera));
  camera.size = readFrameSize(reader);
  camera.framesPerSecond = reader.number("framesPerSecond", kRateRange, 30.0);
  camera.format = reader.word("format", wordsOf(kFormatWords), std::optional(PixelFormat::kRgb32));
  camera.stride = reader.word("stride", wordsOf(kStrideWords), std::optional(Stride::kPositive));
  if (camera.stride == Stride::kNegative && camera.format != PixelFormat::kRgb32) {
    throw JsonContentError(reader.pathOf("stride") + QStringLiteral(" is \"negative\", which only rgb32 can be"));
  }
  if (reader.has("picture")) camera.picture = readPicture(reader.child("picture"), files);
  camera.faults = readFaults(reader);
  return camera;
}

std::vector<CameraDescription> readCameras(const QJsonValue& root, const PictureFiles& files) {
  const JsonObjectReader reader(root, QString());
  reader.allowOnly({"$schema", "cameras"});
  static_cast<void>(reader.text("$schema", QString()));  // for editors
  const QJsonArray list = reader.list("cameras", true);
  if (list.size() > kMostCameras) {
    throw JsonContentError(
        QStringLiteral("cameras holds %1 cameras; allowed are at most %2").arg(list.size()).arg(kMostCameras));
  }
  std::vector<CameraDescription> cameras;
  for (qsizetype i = 0; i < list.size(); ++i) {
    const QString place = QStringLiteral("cameras[%1]").arg(i);
    cameras.push_back(readCamera({list.at(i), place}, files));
  }
  return cameras;
}

QString sentence(const QString& path, const QString& text) {
  return QStringLiteral("%1: %2.").arg(QDir::toNativeSeparators(path), text);
}

}  // namespace

CameraFile readCameraFile(const QString& path, FileCheck check) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return {{}, sentence(path, QStringLiteral("the file cannot be read"))};
  }
  return parseCameraFile(file.readAll(), path, check);
}

CameraFile parseCameraFile(const QByteArray& json, const QString& path, FileCheck check) {
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
    const PictureFiles files{QFileInfo(path).absoluteDir(), check != FileCheck::kNone, check == FileCheck::kAll};
    return {readCameras(root, files), QString()};
  } catch (const JsonContentError& error) {
    return {{}, sentence(path, QString::fromUtf8(error.what()))};
  }
}
