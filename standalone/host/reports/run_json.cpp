#include "standalone/host/reports/run_json.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringConverter>

#include <array>
#include <cmath>
#include <limits>

#include "standalone/host/host_error.h"
#include "standalone/host/key_texts.h"
#include "ui/input_request.h"

namespace {

constexpr std::array kResults = {kTestPassed,    kTestFailed, kTestNotPerformed,
                                 kTestCancelled, kTestError,  kTestNotSupported};
constexpr std::array kEndings = {Ending::kItself, Ending::kUser, Ending::kHost, Ending::kEvent, Ending::kFault};
constexpr std::array kKinds = {InputRequest::kInitialMessage, InputRequest::kQuestion, InputRequest::kDialog};

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(RunJson)
};

QString kindWord(std::uint32_t kind) {
  switch (kind) {
    case InputRequest::kDialog:
      return QStringLiteral("dialog");
    case InputRequest::kQuestion:
      return QStringLiteral("question");
    default:
      return QStringLiteral("message");
  }
}

QString timeText(const QDateTime& time) {
  return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QJsonObject json(const Property& property) {
  return {{"key", property.key}, {"name", keyText(property.key)}, {"value", property.value}};
}

QJsonObject json(const Versions& versions) {
  return {{"host", versions.host}, {"module", versions.module}, {"qt", versions.qt}};
}

QJsonObject json(const TestDescription& test) {
  return {{"word", test.word}, {"name", keyText(test.name)}, {"diagnostic", test.diagnostic}};
}

QJsonObject json(const Run::Progress& progress) {
  return {{"percent", progress.percent}, {"text", progress.text}};
}

QJsonObject json(const Run::Request& request) {
  if (request.kind == InputRequest::kDialog) return {{"kind", kindWord(request.kind)}};
  return {{"kind", kindWord(request.kind)},
          {"title", request.title},
          {"text", request.text},
          {"answer", static_cast<qint64>(request.answer)}};
}

template <class Entry>
QJsonArray jsonList(const QList<Entry>& entries) {
  QJsonArray list;
  for (const Entry& entry : entries) list.append(json(entry));
  return list;
}

QJsonObject settingsJson(const QMap<QString, QString>& settings) {
  QJsonObject object;
  for (auto entry = settings.begin(); entry != settings.end(); ++entry) object[entry.key()] = entry.value();
  return object;
}

QJsonObject endingJson(const Run& run) {
  QJsonObject ending = {{"by", endingWord(run.ending)}};
  if (!run.remark.isEmpty()) ending["remark"] = run.remark;
  return ending;
}

QString pathFrom(const QDir* folder, const QString& file) {
  QString whole = QFileInfo(file).absoluteFilePath();
  if (!folder) return whole;
  QString path = folder->relativeFilePath(whole);
  const bool isBelow = QDir::isRelativePath(path) && !path.startsWith(QLatin1String("../"));
  return isBelow ? path : whole;
}

QJsonArray picturesJson(const QList<Run::Picture>& pictures, const QDir* folder) {
  QJsonArray list;
  for (const Run::Picture& picture : pictures) {
    if (picture.file.isEmpty()) continue;
    list.append(QJsonObject{{"name", picture.name}, {"file", pathFrom(folder, picture.file)}});
  }
  return list;
}

// An object of a record, whose fields are taken with the type that they must have; the name that complaints call it by.
class Fields {
 public:
  explicit Fields(const QJsonObject& fields, const QString& objectName = {}) : object(fields), name(objectName) {}

  QString text(const QString& key) const { return value(key, QJsonValue::String, Texts::tr("a text")).toString(); }
  QString textIfThere(const QString& key) const { return object.contains(key) ? text(key) : QString(); }

  template <class Number>
  Number number(const QString& key) const {
    constexpr auto kLeast = static_cast<double>(std::numeric_limits<Number>::min());
    constexpr auto kMost = static_cast<double>(std::numeric_limits<Number>::max());
    const QString allowed = Texts::tr("a whole number from %1 to %2").arg(kLeast, 0, 'f', 0).arg(kMost, 0, 'f', 0);
    const double number = value(key, QJsonValue::Double, allowed).toDouble();
    if (!(number >= kLeast && number <= kMost) || number != std::floor(number)) refuse(key, allowed);
    return static_cast<Number>(number);
  }

  QDateTime time(const QString& key) const {
    const QString allowed = Texts::tr("a time such as 2026-03-01T14:05:09.250+01:00");
    QDateTime time = QDateTime::fromString(value(key, QJsonValue::String, allowed).toString(), Qt::ISODateWithMs);
    if (!time.isValid() || time.timeSpec() == Qt::LocalTime) refuse(key, allowed);
    return time;
  }

  Fields child(const QString& key) const {
    return Fields(value(key, QJsonValue::Object, Texts::tr("an object")).toObject(), fullName(key));
  }

  QList<Fields> children(const QString& key) const {
    QList<Fields> all;
    for (const QJsonValue entry : list(key)) {
      if (!entry.isObject()) refuse(key, Texts::tr("a list of objects"));
      all.append(Fields(entry.toObject(), QStringLiteral("%1[%2]").arg(fullName(key)).arg(all.size())));
    }
    return all;
  }

  QList<QString> texts(const QString& key) const {
    QList<QString> all;
    for (const QJsonValue entry : list(key)) {
      if (!entry.isString()) refuse(key, Texts::tr("a list of texts"));
      all.append(entry.toString());
    }
    return all;
  }

  QMap<QString, QString> map(const QString& key) const {
    const Fields fields = child(key);
    QMap<QString, QString> all;
    for (const QString& each : fields.object.keys()) all[each] = fields.text(each);
    return all;
  }

  // The one of `values` whose word stands there.
  template <class Values, class WordOf>
  auto oneOf(const QString& key, const Values& values, WordOf wordOf) const {
    QStringList words;
    for (const auto value : values) words.append(wordOf(value));
    const auto index = words.indexOf(text(key));
    if (index < 0) refuse(key, Texts::tr("one of: %1").arg(words.join(QStringLiteral(", "))));
    return values[static_cast<std::size_t>(index)];
  }

  [[noreturn]] void refuse(const QString& key, const QString& allowed) const {
    const bool isThere = object.contains(key);
    const QString sentence = isThere ? Texts::tr("\"%1\" must be %2.") : Texts::tr("\"%1\" is missing; it must be %2.");
    throw HostError(sentence.arg(fullName(key), allowed));
  }

 private:
  QJsonValue value(const QString& key, QJsonValue::Type type, const QString& allowed) const {
    QJsonValue found = object.value(key);
    if (found.type() != type) refuse(key, allowed);
    return found;
  }

  QJsonArray list(const QString& key) const { return value(key, QJsonValue::Array, Texts::tr("a list")).toArray(); }

  QString fullName(const QString& key) const { return name.isEmpty() ? key : name + QLatin1Char('.') + key; }

  QJsonObject object;
  QString name;
};

Camera readCamera(const Fields& fields) {
  Camera camera{fields.text("id"), fields.text("uniqueId"), fields.text("name"), {}};
  for (const Fields& property : fields.children("properties"))
    camera.properties.append({property.text("key"), property.text("value")});
  return camera;
}

Run::Request readRequest(const Fields& fields) {
  Run::Request request;
  request.kind = fields.oneOf("kind", kKinds, kindWord);
  if (request.kind == InputRequest::kDialog) return request;
  request.title = fields.text("title");
  request.text = fields.text("text");
  request.answer = fields.number<std::uint32_t>("answer");
  return request;
}

QByteArray contentOf(const QString& fileName) {
  QFile file(fileName);
  if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

Run readRun(const Fields& fields, const QDir& folder) {
  const int version = fields.number<int>("schemaVersion");
  if (version != kSchemaVersion)
    throw HostError(
        Texts::tr("The record has the form %1; this program reads the form %2.").arg(version).arg(kSchemaVersion));
  Run run;
  run.number = fields.number<int>("run");
  run.start = fields.time("start");
  run.end = fields.time("end");
  const Fields versions = fields.child("versions");
  run.versions = {versions.text("host"), versions.text("module"), versions.text("qt")};
  run.camera = readCamera(fields.child("camera"));
  run.test.name = fields.text("test");
  run.test.word = fields.child("testInfo").text("word");
  run.test.diagnostic = fields.child("testInfo").text("diagnostic");
  run.settings = fields.map("settings");
  run.operatorName = fields.textIfThere("operator");
  run.serialNumber = fields.textIfThere("serialNumber");
  for (const Fields& progress : fields.children("progress"))
    run.progress.append({progress.number<int>("percent"), progress.text("text")});
  run.messages = fields.texts("messages");
  for (const Fields& request : fields.children("requests")) run.requests.append(readRequest(request));
  for (const Fields& picture : fields.children("pictures")) {
    const QString file = QDir::cleanPath(folder.absoluteFilePath(picture.text("file")));
    run.pictures.append({picture.text("name"), contentOf(file), file});
  }
  run.result = fields.oneOf("word", kResults, resultWord);
  if (fields.number<TestResult>("result") != run.result)
    fields.refuse("result", Texts::tr("%1, which is \"%2\"").arg(*run.result).arg(resultWord(*run.result)));
  const Fields ending = fields.child("ending");
  run.ending = ending.oneOf("by", kEndings, endingWord);
  run.remark = ending.textIfThere("remark");
  return run;
}

// A text that a program on Windows saved may begin with a mark of its encoding, and be UTF-16.
QByteArray asUtf8(const QByteArray& content) {
  const auto encoding = QStringConverter::encodingForData(content);
  if (!encoding) return content;
  const QString text = QStringDecoder(*encoding)(content);
  return text.toUtf8();
}

bool isWhole(const QByteArray& json) {
  QJsonParseError error;
  QJsonDocument::fromJson(json, &error);
  return error.error == QJsonParseError::NoError;
}

struct Record {
  int line;
  QByteArray json;
};

QList<Record> recordsIn(const QByteArray& content) {
  QList<Record> records;
  int number = 0;
  for (const QByteArray& line : content.split('\n')) {
    ++number;
    if (!line.trimmed().isEmpty()) records.append({number, line});
  }
  const bool isSpread = records.size() > 1 && !isWhole(records.front().json);
  if (!isSpread) return records;
  return {{1, content}};
}

Run readRecord(const Record& record, const QDir& folder) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(record.json, &error);
  if (error.error != QJsonParseError::NoError)
    throw HostError(Texts::tr("This is not JSON: %1.").arg(error.errorString()));
  if (!document.isObject()) throw HostError(Texts::tr("A record is an object: {…}."));
  return readRun(Fields(document.object()), folder);
}

}  // namespace

QJsonObject cameraJson(const Camera& camera) {
  return {{"id", camera.number},
          {"name", camera.name},
          {"uniqueId", camera.uniqueId},
          {"properties", jsonList(camera.properties)}};
}

QByteArray jsonLine(const Run& run, const QDir* folder) {
  const TestResult result = run.result.value();
  QJsonArray texts;
  for (const QString& message : run.messages) texts.append(keyText(message));
  QJsonObject line = {{"schemaVersion", kSchemaVersion},
                      {"run", run.number},
                      {"start", timeText(run.start)},
                      {"end", timeText(run.end)},
                      {"seconds", run.seconds()},
                      {"versions", json(run.versions)},
                      {"camera", cameraJson(run.camera)},
                      {"test", run.test.name},
                      {"testInfo", json(run.test)},
                      {"settings", settingsJson(run.settings)},
                      {"result", static_cast<qint64>(result)},
                      {"word", resultWord(result)},
                      {"messages", QJsonArray::fromStringList(run.messages)},
                      {"texts", texts},
                      {"progress", jsonList(run.progress)},
                      {"requests", jsonList(run.requests)},
                      {"pictures", picturesJson(run.pictures, folder)},
                      {"ending", endingJson(run)}};
  if (!run.operatorName.isEmpty()) line["operator"] = run.operatorName;
  if (!run.serialNumber.isEmpty()) line["serialNumber"] = run.serialNumber;
  return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

QList<Run> readRuns(const QString& fileName) {
  const QString shownName = QDir::toNativeSeparators(fileName);
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly))
    throw HostError(Texts::tr("%1 could not be read: %2").arg(shownName, file.errorString()));
  const QDir folder = QFileInfo(fileName).absoluteDir();
  QList<Run> runs;
  for (const Record& record : recordsIn(asUtf8(file.readAll()))) {
    try {
      runs.append(readRecord(record, folder));
    } catch (const HostError& error) {
      throw HostError(Texts::tr("%1, line %2: %3").arg(shownName, QString::number(record.line), error.sentence()));
    }
  }
  return runs;
}
