#include "utils/accessibility/style_sheet.h"

#include <QLatin1String>
#include <QRegularExpression>
#include <QStringList>
#include <QStringView>

namespace vexa::utils::accessibility {
namespace {

constexpr qsizetype kNowhere = -1;

/// The place behind the quote that ends what stands in quotes from `at` on. A line's end ends it, too.
qsizetype behindQuoted(QStringView text, qsizetype at, QChar quote) {
  while (at < text.size() && text[at] != quote && text[at] != u'\n') at += text[at] == u'\\' ? 2 : 1;
  return at + 1;
}

/// The place behind the quoted or bracketed text that begins at `from`; behind the sign there when none begins.
/// kNowhere when the text does not end.
qsizetype behind(QStringView text, qsizetype from) {
  // The closing brackets that are awaited, the innermost last.
  QString awaited;
  qsizetype at = from;
  do {
    const QChar sign = text[at++];
    if (sign == u'\\') {
      ++at;
    } else if (sign == u'"' || sign == u'\'') {
      at = behindQuoted(text, at, sign);
    } else if (!awaited.isEmpty() && sign == awaited.back()) {
      awaited.chop(1);
    } else if (const qsizetype bracket = QStringView(u"([{").indexOf(sign); bracket >= 0) {
      awaited += u")]}"[bracket];
    }
  } while (!awaited.isEmpty() && at < text.size());
  return awaited.isEmpty() && at <= text.size() ? at : kNowhere;
}

/// The parts of a text between a sign, where this stands in no quotes or brackets.
QStringList split(QStringView text, QChar sign) {
  QStringList parts;
  qsizetype start = 0;
  for (qsizetype at = 0; at != kNowhere && at < text.size();) {
    if (text[at] != sign) {
      at = behind(text, at);
      continue;
    }
    parts.append(text.sliced(start, at - start).trimmed().toString());
    start = ++at;
  }
  parts.append(text.sliced(start).trimmed().toString());
  return parts;
}

QString withoutComments(QString sheet) {
  // A quoted text is matched first, so that it keeps what looks like a comment.
  static const QRegularExpression kQuotedOrComment(
      QStringLiteral(R"re(("(?:\\.|[^"\\\n])*+"|'(?:\\.|[^'\\\n])*+')|/\*.*?(?:\*/|\z))re"),
      QRegularExpression::DotMatchesEverythingOption);
  return sheet.replace(kQuotedOrComment, QStringLiteral("\\1"));
}

/// Whether all quotes and brackets of a text on one line end.
bool isClosed(QStringView line) {
  qsizetype at = 0;
  while (at != kNowhere && at < line.size()) at = behind(line, at);
  return at != kNowhere;
}

QList<StyleDeclaration> parseDeclarations(QStringView body) {
  QList<StyleDeclaration> declarations;
  for (const QString& part : split(body, u';')) {
    const qsizetype colon = part.indexOf(u':');
    const QString property = part.left(colon).simplified();
    const QString value = colon < 0 ? QString() : part.sliced(colon + 1).simplified();
    // A brace is that of a rule within the rule.
    if (property.isEmpty() || value.isEmpty() || part.contains(u'{')) continue;
    if (isClosed(property) && isClosed(value)) declarations.append({property, value});
  }
  return declarations;
}

}  // namespace

QList<StyleRule> parseStyleSheet(const QString& sheet) {
  const QString text = withoutComments(sheet);
  QList<StyleRule> rules;
  for (qsizetype start = 0, at = 0; at < text.size();) {
    const qsizetype next = behind(text, at);
    if (next == kNowhere) break;
    if (text[at] == u'{') {
      const QStringView selectors = QStringView(text).sliced(start, at - start);
      const auto declarations = parseDeclarations(QStringView(text).sliced(at + 1, next - at - 2));
      for (const QString& selector : split(selectors, u',')) {
        if (!selector.isEmpty() && !selector.startsWith(u'@')) rules.append({selector, declarations});
      }
    }
    // An at-rule without a body ends with a semicolon.
    if (text[at] == u'{' || text[at] == u';' || text[at] == u'}') start = next;
    at = next;
  }
  return rules;
}

QString toText(const StyleRule& rule) {
  QString text = rule.selector + QLatin1String(" {\n");
  for (const StyleDeclaration& declaration : rule.declarations) {
    text += QLatin1String("  ") + declaration.property + QLatin1String(": ") + declaration.value + QLatin1String(";\n");
  }
  return text + QLatin1String("}\n");
}

}  // namespace vexa::utils::accessibility
