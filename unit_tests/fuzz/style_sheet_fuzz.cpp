// Style sheets of a host: taken apart and put together they stay what they are, and under a contrast theme every colour
// is one of the theme's.

#include <QRegularExpression>

#include "unit_tests/fuzz/fuzzer.h"
#include "utils/accessibility/high_contrast_style.h"
#include "utils/accessibility/recolored_icons.h"
#include "utils/accessibility/style_sheet.h"

using namespace vexa::utils::accessibility;

namespace {

QString text(const QList<StyleRule>& rules) {
  QString sheet;
  for (const StyleRule& rule : rules) sheet += toText(rule);
  return sheet;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString sheet = QString::fromUtf8(inputBytes(data, size));
  const QString written = text(parseStyleSheet(sheet));
  require(text(parseStyleSheet(written)) == written, "rules that are written are read as the same rules");

  QList<QColor> colors;
  for (int k = 0; k < 30; ++k) colors += QColor(k, 0, 0);
  RecoloredIcons icons(nullptr);
  const QString themed = highContrastStyleSheet(sheet, colors, icons);
  require(text(parseStyleSheet(themed)) == themed, "what is made for a theme is a style sheet");
  return 0;
}
