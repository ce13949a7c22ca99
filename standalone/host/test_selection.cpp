#include "standalone/host/test_selection.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

#include "standalone/host/host_error.h"

namespace {

std::array<QString, 2> wordsOf(const AliasEntry& entry) {
  return {QString::fromStdString(entry.longAlias), QString::fromStdString(entry.shortAlias)};
}

std::optional<ItemId> named(const Aliases& aliases, const QString& word) {
  for (const auto& [id, entry] : aliases) {
    if (std::ranges::count(wordsOf(entry), word) > 0) {
      return id;
    }
  }
  return std::nullopt;
}

QString allWords(const Aliases& aliases) {
  QStringList words;
  for (const auto& [id, entry] : aliases) {
    words << QStringLiteral("%1 (%2)").arg(wordsOf(entry)[0], wordsOf(entry)[1]);
  }
  return words.join(QStringLiteral(", "));
}

// Takes the diagnostic's word off the front of `text`. A shell removes the quotation marks of Q"c b", so the word may
// run straight into the first test's; what is left must then be that word, or `capture` would be a diagnostic c.
std::optional<ItemId> takeDiagnostic(QString& text, const Aliases& diagnostics, const Aliases& tests) {
  for (const auto& [id, entry] : diagnostics) {
    for (const QString& word : wordsOf(entry)) {
      if (word.isEmpty() || !text.startsWith(word)) {
        continue;
      }
      const QString rest = text.mid(word.size());
      const QString next = rest.section(QRegularExpression(QStringLiteral("[\\s\"]")), 0, 0);
      if (next.isEmpty() || named(tests, next)) {
        text = rest;
        return id;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

std::vector<ItemId> selectTests(const QString& words, const Aliases& diagnostics, const Aliases& tests) {
  static const QRegularExpression separators(QStringLiteral("[\\s\"]+"));
  QString text = words.trimmed();
  const std::optional<ItemId> diagnostic = takeDiagnostic(text, diagnostics, tests);

  std::vector<ItemId> selected;
  const auto select = [&](const ItemId& id) {
    const bool isNew = std::ranges::none_of(selected, [&](const ItemId& other) { return other.key == id.key; });
    if (isNew && (!diagnostic || diagnostic->diagnostic == id.diagnostic)) {
      selected.push_back(id);
    }
  };
  const QStringList testWords = text.split(separators, Qt::SkipEmptyParts);
  for (const QString& word : testWords) {
    const std::optional<ItemId> id = named(tests, word);
    if (!id) {
      throw HostError(QStringLiteral("The module has no test \"%1\"; its tests are %2.").arg(word, allWords(tests)));
    }
    select(*id);
  }
  if (testWords.isEmpty()) {
    for (const auto& [id, entry] : tests) {
      select(id);
    }
  }
  return selected;
}
