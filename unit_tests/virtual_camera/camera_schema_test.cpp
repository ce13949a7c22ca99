// Compares cameras.schema.json, by which editors help, with what the reader of descriptions takes and refuses.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "standalone/virtual_camera/description/camera_file.h"

namespace {

class CameraSchema : public testing::Test {
 protected:
  CameraSchema() {
    QFile file(QStringLiteral(SCHEMA_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    schema = QJsonDocument::fromJson(file.readAll()).object();
    EXPECT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("a")));
    EXPECT_TRUE(QImage(2, 2, QImage::Format_RGB32).save(folder.filePath(QStringLiteral("a/1.png"))));
  }

  QJsonObject definition(const QString& name) const { return schema["definitions"][name].toObject(); }

  QJsonObject resolved(const QJsonValue& value) const {
    const QString reference = value["$ref"].toString();
    return reference.isEmpty() ? value.toObject() : definition(reference.section(QLatin1Char('/'), -1));
  }

  // The smallest value that a property may have.
  QJsonValue least(const QString& name, const QJsonObject& property) const {
    if (property.contains("const")) return property["const"];
    if (property.contains("enum")) return property["enum"].toArray().first();
    if (property.contains("minimum")) return property["minimum"];
    if (property["type"] == "array") {
      return property["minItems"].toInt() > 0 ? QJsonArray{QStringLiteral("a/1.png")} : QJsonArray();
    }
    return name == QLatin1String("file") ? QStringLiteral("a/1.png") : QStringLiteral("a");
  }

  // An object with nothing but what it requires.
  QJsonObject least(const QJsonObject& object) const {
    QJsonObject made;
    for (const QJsonValue name : object["required"].toArray()) {
      made[name.toString()] = least(name.toString(), resolved(object["properties"][name.toString()]));
    }
    return made;
  }

  // The smallest item that a list may hold.
  QJsonValue leastItem(const QJsonObject& list) const {
    QJsonObject item = resolved(list["items"]);
    if (item.contains("oneOf")) item = item["oneOf"][0].toObject();
    return item.contains("properties") ? QJsonValue(least(item)) : QStringLiteral("a/1.png");
  }

  // A description as it is read, or one that holds one camera, picture, code or fault.
  CameraFile read(const QString& kind, const QJsonObject& object) const {
    QJsonObject camera = least(definition(QStringLiteral("camera")));
    if (kind == QLatin1String("camera")) camera = object;
    if (kind == QLatin1String("picture")) camera["picture"] = object;
    if (kind == QLatin1String("code")) {
      camera["picture"] = QJsonObject{{"kind", "barcode"}, {"codes", QJsonArray{object}}};
    }
    if (kind == QLatin1String("fault")) {
      QJsonArray faults{object};
      if (object["kind"] == "returns") faults.prepend(QJsonObject{{"kind", "removed"}, {"at", 0}});
      camera["faults"] = faults;
    }
    const QJsonObject root{{"cameras", QJsonArray{camera}}};
    return parseCameraFile(QJsonDocument(kind == QLatin1String("root") ? object : root).toJson(),
                           folder.filePath(QStringLiteral("c.json")), FileCheck::kImages);
  }

  QString errorOf(const QString& kind, const QJsonObject& object) const { return read(kind, object).error; }

  static QString with(const QString& kind, const QString& name) {
    return (kind == QLatin1String("root") ? QStringLiteral(": ") : QStringLiteral(".")) + name + QLatin1Char(' ');
  }

  // The words or keys that a sentence says are allowed.
  static QStringList allowedIn(const QString& sentence) {
    QStringList words = sentence.section(QStringLiteral("allowed are "), 1).chopped(1).split(QStringLiteral(", "));
    words.sort();
    return words;
  }

  static QStringList sorted(QStringList words) {
    words.sort();
    return words;
  }

  void checkProperty(const QString& kind, QJsonObject object, const QString& name, const QJsonObject& property) const {
    const auto errorWith = [&](const QJsonValue& value) {
      object[name] = value;
      return errorOf(kind, object);
    };
    if (property.contains("default")) {
      const std::vector<CameraDescription> without = read(kind, object).cameras;
      object[name] = property["default"];
      EXPECT_EQ(read(kind, object).cameras, without) << "another default";
    }
    if (property.contains("enum")) {
      for (const QJsonValue word : property["enum"].toArray()) EXPECT_EQ(errorWith(word), QString());
      EXPECT_EQ(allowedIn(errorWith("?")), sorted(property["enum"].toVariant().toStringList()));
    } else if (property.contains("minimum")) {
      const double least = property["minimum"].toDouble();
      const double most = property["maximum"].toDouble();
      // A code goes only after it came.
      EXPECT_EQ(errorWith(name == QLatin1String("to") ? least + 1 : least), QString());
      EXPECT_EQ(errorWith(most), QString());
      for (const double bad : {least - 1, most + 1}) {
        EXPECT_TRUE(errorWith(bad).contains(QStringLiteral("; allowed is "))) << "accepted: " << bad;
      }
      EXPECT_EQ(errorWith((least + most) / 2 + 0.25).contains(QStringLiteral("must be a whole number")),
                property["type"] == "integer");
    } else if (!property.contains("const")) {
      EXPECT_TRUE(errorWith(1).contains(with(kind, name))) << "accepted: 1";
    }
    if (property["type"] != "array") return;
    QJsonArray list;
    EXPECT_EQ(errorWith(list).isEmpty(), property["minItems"].toInt() == 0);
    while (list.size() < property["maxItems"].toInt()) list << leastItem(property);
    EXPECT_EQ(errorWith(list), QString());
    list << leastItem(property);
    EXPECT_TRUE(errorWith(list).contains(QStringLiteral("; allowed are "))) << "accepted: " << list.size();
  }

  void checkObject(const QString& kind, const QJsonObject& object) const {
    const QJsonObject given = least(object);
    EXPECT_EQ(errorOf(kind, given), QString());
    QJsonObject more = given;
    more["?"] = 1;
    const QJsonObject properties = object["properties"].toObject();
    EXPECT_EQ(allowedIn(errorOf(kind, more)), sorted(properties.keys()));
    for (const QString& name : properties.keys()) {
      SCOPED_TRACE(name.toStdString());
      QJsonObject less = given;
      less.remove(name);
      EXPECT_EQ(errorOf(kind, less).contains(with(kind, name) + QStringLiteral("is missing")), given.contains(name));
      if (properties[name]["$ref"] == "#/definitions/picture") continue;
      checkProperty(kind, given, name, resolved(properties[name]));
    }
  }

  QTemporaryDir folder;
  QJsonObject schema;
};

TEST_F(CameraSchema, AllowsWhatTheReaderTakesAndNothingElse) {
  checkObject(QStringLiteral("root"), schema);
  for (const char* name : {"camera", "picture", "code", "fault"}) {
    const QString kind = QString::fromLatin1(name);
    const QJsonArray forms = definition(kind)["oneOf"].toArray();
    QStringList kinds;
    for (const QJsonValue form : forms.isEmpty() ? QJsonArray{definition(kind)} : forms) {
      const QString word = form["properties"]["kind"]["const"].toString();
      SCOPED_TRACE((kind + QLatin1Char(' ') + word).toStdString());
      checkObject(kind, form.toObject());
      kinds << word;
    }
    if (forms.isEmpty()) continue;
    EXPECT_EQ(allowedIn(errorOf(kind, {{"kind", "?"}})), sorted(kinds));
  }
}

}  // namespace
