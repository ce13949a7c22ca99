#include "standalone/host/reports/allowed_text.h"

#include <QList>

namespace {

bool isAllowed(char32_t character) {
  if (character == U'\t' || character == U'\n' || character == U'\r') return true;
  return !QChar::isNonCharacter(character) && QChar::category(character) != QChar::Other_Control;
}

}  // namespace

QString allowedText(const QString& text) {
  QString allowed;
  allowed.reserve(text.size());
  // Half a surrogate pair is U+FFFD here already.
  for (const char32_t character : text.toUcs4())
    allowed += QChar::fromUcs4(isAllowed(character) ? character : char32_t{QChar::ReplacementCharacter});
  return allowed;
}
