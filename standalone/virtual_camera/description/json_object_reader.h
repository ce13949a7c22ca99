#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>
#include <initializer_list>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

/// Thrown by JsonObjectReader: a sentence without its final stop.
class JsonContentError : public std::runtime_error {
 public:
  explicit JsonContentError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
};

/// The bounds of a number, both allowed.
struct NumberRange {
  double least;
  double most;
};

/// Reads the values of one JSON object and throws JsonContentError, which names the place and what is allowed there,
/// for a value that is missing, of the wrong type or out of its range. A value without a fallback is required.
class JsonObjectReader {
 public:
  template <class Enum>
  using Word = std::pair<const char*, Enum>;

  /// `place` is how errors name the object, such as cameras[0]; empty for the outermost object.
  JsonObjectReader(const QJsonValue& value, QString place);

  /// Throws if the object has a key that is not in this list.
  void allowOnly(std::initializer_list<const char*> keys) const;

  [[nodiscard]] bool has(const char* key) const { return object.contains(QLatin1String(key)); }
  [[nodiscard]] QString text(const char* key, const std::optional<QString>& fallback = std::nullopt) const;
  [[nodiscard]] double number(const char* key, NumberRange range, std::optional<double> fallback = std::nullopt) const;
  [[nodiscard]] int integer(const char* key, NumberRange range) const;
  /// A missing list is an empty one unless it is required.
  [[nodiscard]] QJsonArray list(const char* key, bool required) const;
  [[nodiscard]] JsonObjectReader child(const char* key) const {
    return {object.value(QLatin1String(key)), pathOf(key)};
  }

  /// One of the words of a table.
  template <class Enum>
  [[nodiscard]] Enum word(const char* key, std::span<const Word<Enum>> table,
                          std::optional<Enum> fallback = std::nullopt) const {
    if (fallback && !has(key)) return *fallback;
    const QString given = text(key);
    QStringList allowed;
    for (const auto& [name, value] : table) {
      if (given == QLatin1String(name)) return value;
      allowed << QLatin1String(name);
    }
    failWord(key, given, allowed);
  }

  /// The place of a value, for error sentences.
  [[nodiscard]] QString pathOf(const char* key) const;

 private:
  [[noreturn]] void failWord(const char* key, const QString& given, const QStringList& allowed) const;
  [[nodiscard]] QJsonValue required(const char* key) const;

  QJsonObject object;
  QString place;
};

/// A table of words as JsonObjectReader::word takes it.
template <class Enum, std::size_t Size>
std::span<const JsonObjectReader::Word<Enum>> wordsOf(const std::array<JsonObjectReader::Word<Enum>, Size>& table) {
  return table;
}
