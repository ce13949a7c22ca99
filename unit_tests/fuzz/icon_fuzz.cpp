// SVG icons: what is well-formed gets one colour and stays well-formed, everything else is refused.

#include <QXmlStreamReader>

#include "unit_tests/fuzz/fuzzer.h"
#include "utils/accessibility/recolored_icons.h"

using vexa::utils::accessibility::recoloredSvg;

namespace {

const QColor kColor(1, 2, 3);

bool isWellFormed(const QByteArray& svg) {
  QXmlStreamReader reader(svg);
  // A prefix that nobody declared is the author's own fault.
  reader.setNamespaceProcessing(false);
  while (!reader.atEnd()) {
    reader.readNext();
    const QXmlStreamAttributes attributes = reader.attributes();
    if (!attributes.hasAttribute(QLatin1String("fill"))) continue;
    const QString fill = attributes.value(QLatin1String("fill")).toString().trimmed();
    require(fill == kColor.name() || fill == QLatin1String("none"), "no fill has another colour");
  }
  return !reader.hasError();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray recolored = recoloredSvg(inputBytes(data, size), kColor);
  if (recolored.isEmpty()) return 0;
  require(isWellFormed(recolored), "what comes out is well-formed");
  require(recoloredSvg(recolored, kColor) == recolored, "a second time changes nothing");
  return 0;
}
