#pragma once

#include <QList>
#include <QString>

namespace vexa::utils::accessibility {

struct StyleDeclaration {
  /// As written: the names of Qt's own properties depend on the case, all others do not.
  QString property;
  QString value;
};

/// The declarations of one selector: a rule of a sheet that names several selectors is one of these for each.
struct StyleRule {
  QString selector;
  QList<StyleDeclaration> declarations;
};

/// Takes a Qt style sheet apart, in its order. Comments, at-rules and whatever is no "property: value" are left out; so
/// is everything behind a quote, bracket or brace that is never closed.
[[nodiscard]] QList<StyleRule> parseStyleSheet(const QString& sheet);

/// A rule as text: the selector and a brace, a line for each declaration, a brace.
[[nodiscard]] QString toText(const StyleRule& rule);

}  // namespace vexa::utils::accessibility
