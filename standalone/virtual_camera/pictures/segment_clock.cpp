#include "standalone/virtual_camera/pictures/segment_clock.h"

#include <array>
#include <cmath>

namespace {

// Bit 0 is the top segment, then clockwise to the upper left (bit 5), then the middle one (bit 6).
constexpr std::array<unsigned, 10> kSegmentsOfDigit{0x3f, 0x06, 0x5b, 0x4f, 0x66, 0x6d, 0x7d, 0x07, 0x7f, 0x6f};

void drawDigit(QPainter& painter, const QRectF& cell, int digit) {
  const double thick = 0.18 * cell.width();
  const double half = cell.height() / 2;
  const QRectF across(cell.left() + thick / 2, cell.top(), cell.width() - thick, thick);
  const QRectF down(cell.left(), cell.top() + thick / 2, thick, half - thick / 2);
  const double right = cell.width() - thick;
  const std::array<QRectF, 7> segments{across,
                                       down.translated(right, 0),
                                       down.translated(right, half - thick / 2),
                                       across.translated(0, cell.height() - thick),
                                       down.translated(0, half - thick / 2),
                                       down,
                                       across.translated(0, half - thick / 2)};
  for (std::size_t i = 0; i < segments.size(); ++i) {
    if ((kSegmentsOfDigit[static_cast<std::size_t>(digit)] >> i) & 1U) {
      painter.drawRoundedRect(segments[i], thick / 2, thick / 2);
    }
  }
}

}  // namespace

void drawSegmentClock(QPainter& painter, const QRectF& panel, double seconds) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(8, 10, 28, 215));
  painter.drawRoundedRect(panel, 0.2 * panel.height(), 0.2 * panel.height());

  const long long hundredths = std::llround(seconds * 100);
  const std::array<long long, 3> parts{hundredths / 6000 % 100, hundredths / 100 % 60, hundredths % 100};
  const double unit = panel.width() / 18;  // six digits of two units each, gaps and dots in between
  const double top = panel.top() + 0.18 * panel.height();
  const double height = 0.64 * panel.height();
  double x = panel.left() + 1.1 * unit;
  painter.setBrush(QColor(0x7d, 0xf9, 0xff));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    drawDigit(painter, {x, top, 1.9 * unit, height}, static_cast<int>(parts[i] / 10));
    drawDigit(painter, {x + 2.5 * unit, top, 1.9 * unit, height}, static_cast<int>(parts[i] % 10));
    x += 4.4 * unit;
    if (i + 1 == parts.size()) break;
    const double dot = 0.26 * unit;
    painter.drawEllipse(QPointF(x + 0.65 * unit, top + height * (i == 0 ? 0.7 : 0.95)), dot, dot);
    if (i == 0) painter.drawEllipse(QPointF(x + 0.65 * unit, top + height * 0.3), dot, dot);
    x += 1.3 * unit;
  }
}
