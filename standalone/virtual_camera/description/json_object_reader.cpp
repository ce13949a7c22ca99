#include "standalone/virtual_camera/description/json_object_reader.h"

#include <algorithm>
#include <cmath>

namespace {

QString kindOf(const QJsonValue& value) {
  switch (value.type()) {
    case QJsonValue::Null:
      return QStringLiteral("null");
    case QJsonValue::Bool:
      return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
      return QStringLiteral("the number %1").arg(value.toDouble());
    case QJsonValue::String:
      return QStringLiteral("the text \"%1\"").arg(value.toString());
    case QJsonValue::Array:
      return QStringLiteral("a list");
    case QJsonValue::Object:
      return QStringLiteral("an object");
    case QJsonValue::Undefined:
      break;
  }
  return QStringLiteral("missing");
}

[[noreturn]] void failType(const QString& path, const QJsonValue& value, const char* wanted) {
  throw JsonContentError(QStringLiteral("%1 is %2, but must be %3").arg(path, kindOf(value), QLatin1String(wanted)));
}

}  // namespace

JsonObjectReader::JsonObjectReader(const QJsonValue& value, QString placeOfObject)
    : object(value.toObject()), place(std::move(placeOfObject)) {
  if (!value.isObject()) failType(place.isEmpty() ? QStringLiteral("the file") : place, value, "an object");
}

void JsonObjectReader::allowOnly(std::initializer_list<const char*> keys) const {
  for (const QString& key : object.keys()) {
    if (std::ranges::any_of(keys, [&key](const char* allowed) { return key == QLatin1String(allowed); })) continue;
    QStringList names;
    for (const char* allowed : keys) names << QLatin1String(allowed);
    throw JsonContentError(QStringLiteral("%1 has the unknown key \"%2\"; allowed are %3")
                               .arg(place.isEmpty() ? QStringLiteral("the file") : place, key, names.join(", ")));
  }
}

QString JsonObjectReader::text(const char* key, const std::optional<QString>& fallback) const {
  if (fallback && !has(key)) return *fallback;
  const QJsonValue value = required(key);
  if (!value.isString()) failType(pathOf(key), value, "a text");
  return value.toString();
}

double JsonObjectReader::number(const char* key, NumberRange range, std::optional<double> fallback) const {
  if (fallback && !has(key)) return *fallback;
  const QJsonValue value = required(key);
  if (!value.isDouble()) failType(pathOf(key), value, "a number");
  const double given = value.toDouble();
  if (given < range.least || given > range.most) {
    throw JsonContentError(
        QStringLiteral("%1 is %2; allowed is %3 to %4").arg(pathOf(key)).arg(given).arg(range.least).arg(range.most));
  }
  return given;
}

int JsonObjectReader::integer(const char* key, NumberRange range) const {
  const double given = number(key, range);
  if (given != std::floor(given)) failType(pathOf(key), given, "a whole number");
  return static_cast<int>(given);
}

QJsonArray JsonObjectReader::list(const char* key, bool isRequired) const {
  if (!isRequired && !has(key)) return {};
  const QJsonValue value = required(key);
  if (!value.isArray()) failType(pathOf(key), value, "a list");
  return value.toArray();
}

QString JsonObjectReader::pathOf(const char* key) const {
  return place.isEmpty() ? QString::fromLatin1(key) : place + QLatin1Char('.') + QLatin1String(key);
}

void JsonObjectReader::failWord(const char* key, const QString& given, const QStringList& allowed) const {
  throw JsonContentError(
      QStringLiteral("%1 is \"%2\"; allowed are %3").arg(pathOf(key), given, allowed.join(QStringLiteral(", "))));
}

QJsonValue JsonObjectReader::required(const char* key) const {
  if (!has(key)) throw JsonContentError(pathOf(key) + QStringLiteral(" is missing"));
  return object.value(QLatin1String(key));
}
