#include "standalone/virtual_camera/pictures/test_pattern.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

#include "standalone/virtual_camera/pictures/segment_clock.h"

namespace {

constexpr double kSecondsPerRound = 4.0;

// Where things stand, in pixels of the frame.
struct Layout {
  explicit Layout(QSize size) : width(size.width()), height(size.height()) {}

  [[nodiscard]] QPointF centre() const { return {width / 2, 0.42 * height}; }
  [[nodiscard]] double circleRadius() const { return std::min(0.36 * height, 0.40 * width); }
  [[nodiscard]] double sideRadius() const { return std::min(0.13 * height, 0.09 * width); }
  [[nodiscard]] double lineWidth() const { return std::max(1.0, height / 360); }
  [[nodiscard]] QPointF onCircle(double turns, double radius) const {
    const double angle = 2 * std::numbers::pi * turns;
    return centre() + radius * QPointF(std::sin(angle), -std::cos(angle));
  }

  double width;
  double height;
};

void drawSky(QPainter& painter, const Layout& at) {
  QLinearGradient sky(0, 0, 0, 0.72 * at.height);
  sky.setColorAt(0.0, QColor(0x12, 0x1a, 0x46));
  sky.setColorAt(0.45, QColor(0x5b, 0x35, 0x7f));
  sky.setColorAt(0.75, QColor(0xe2, 0x64, 0x5c));
  sky.setColorAt(1.0, QColor(0xff, 0xcf, 0x7a));
  painter.fillRect(QRectF(0, 0, at.width, at.height), sky);

  const QPointF sun(at.width / 2, 0.56 * at.height);
  QRadialGradient glow(sun, 0.42 * at.height);
  glow.setColorAt(0.0, QColor(0xff, 0xf6, 0xd8));
  glow.setColorAt(0.22, QColor(0xff, 0xee, 0xb4));
  glow.setColorAt(0.24, QColor(0xff, 0xd8, 0x80, 150));
  glow.setColorAt(1.0, QColor(0xff, 0xa0, 0x50, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(sun, 0.42 * at.height, 0.42 * at.height);
}

void drawHills(QPainter& painter, const Layout& at) {
  struct Hill {
    QRgb colour;
    double top, rise, waves, phase;
  };
  constexpr std::array kHills{Hill{0xff8a4a7d, 0.60, 0.050, 2.1, 0.3}, Hill{0xff5a3369, 0.66, 0.045, 2.9, 1.9},
                              Hill{0xff2f2150, 0.72, 0.035, 3.7, 4.0}};
  for (const Hill& hill : kHills) {
    QPainterPath path(QPointF(0, at.height));
    constexpr int kSteps = 160;
    for (int i = 0; i <= kSteps; ++i) {
      const double along = double(i) / kSteps;
      const double angle = 2 * std::numbers::pi * hill.waves * along + hill.phase;
      const double wave = 0.6 * std::sin(angle) + 0.3 * std::sin(2.3 * angle) + 0.1 * std::sin(7.1 * angle);
      path.lineTo(along * at.width, at.height * (hill.top - hill.rise * wave));
    }
    path.lineTo(at.width, at.height);
    painter.fillPath(path, QColor(hill.colour));
  }
}

void drawGrid(QPainter& painter, const Layout& at) {
  painter.setPen(QPen(QColor(255, 255, 255, 44), at.lineWidth()));
  const double step = at.height / 12;
  for (int column = 0; (column + 0.5) * step < at.width / 2; ++column) {
    const double offset = (column + 0.5) * step;
    for (const double x : {at.width / 2 - offset, at.width / 2 + offset}) {
      painter.drawLine(QPointF(x, 0), QPointF(x, at.height));
    }
  }
  for (int row = 1; row < 12; ++row) painter.drawLine(QPointF(0, row * step), QPointF(at.width, row * step));
}

void drawCircle(QPainter& painter, const Layout& at) {
  const double radius = at.circleRadius();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(255, 255, 255, 220), 1.5 * at.lineWidth()));
  painter.drawEllipse(at.centre(), radius, radius);
  painter.setPen(QPen(QColor(255, 255, 255, 110), at.lineWidth()));
  painter.drawLine(at.onCircle(0.0, radius), at.onCircle(0.5, radius));
  painter.drawLine(at.onCircle(0.25, radius), at.onCircle(0.75, radius));
  painter.setPen(QPen(QColor(255, 255, 255, 200), at.lineWidth()));
  for (int i = 0; i < 60; ++i) {
    painter.drawLine(at.onCircle(i / 60.0, radius), at.onCircle(i / 60.0, radius * (i % 5 == 0 ? 0.93 : 0.965)));
  }
}

// The left side's mark and the right side's differ: a mirrored picture is seen at a glance.
void drawStar(QPainter& painter, const Layout& at) {
  const QPointF centre(0.11 * at.width, at.centre().y());
  const double radius = at.sideRadius();
  const QRectF box(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawEllipse(box);
  painter.setBrush(Qt::black);
  constexpr int kSectors = 24;
  constexpr int kUnitsPerSector = 360 * 16 / (2 * kSectors);
  for (int i = 0; i < kSectors; ++i) painter.drawPie(box, 2 * i * kUnitsPerSector, kUnitsPerSector);
}

void drawGratings(QPainter& painter, const Layout& at) {
  constexpr int kWidestPair = 16;
  const int side = int(2 * at.sideRadius()) / (2 * kWidestPair) * (2 * kWidestPair);
  const QPoint corner(int(0.89 * at.width) - side / 2, int(at.centre().y()) - side / 2);
  painter.fillRect(QRect(corner, QSize(side, side)), Qt::white);
  const int half = side / 2;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const int line = 1 << quarter;
    const QPoint start = corner + QPoint(quarter % 2 * half, quarter / 2 * half);
    for (int offset = 0; offset < half; offset += 2 * line) {
      const QRect rows(start + QPoint(0, offset), QSize(half, line));
      const QRect columns(start + QPoint(offset, 0), QSize(line, half));
      painter.fillRect((quarter == 1 || quarter == 2) ? rows : columns, Qt::black);
    }
  }
}

void drawStrips(QPainter& painter, const Layout& at) {
  constexpr std::array<QRgb, 8> kBars{0xffffffff, 0xffffff00, 0xff00ffff, 0xff00ff00,
                                      0xffff00ff, 0xffff0000, 0xff0000ff, 0xff000000};
  const QRectF all(0.08 * at.width, 0.80 * at.height, 0.84 * at.width, 0.16 * at.height);
  QRectF bar(all.topLeft(), QSizeF(all.width() / kBars.size(), 0.5 * all.height()));
  for (const QRgb colour : kBars) {
    painter.fillRect(bar, QColor(colour));
    bar.translate(bar.width(), 0);
  }

  QLinearGradient grey(all.topLeft(), all.topRight());
  grey.setColorAt(0, Qt::black);
  grey.setColorAt(1, Qt::white);
  painter.fillRect(QRectF(all.left(), bar.bottom(), all.width(), 0.25 * all.height()), grey);

  QLinearGradient hue(all.topLeft(), all.topRight());
  for (int i = 0; i <= 12; ++i) hue.setColorAt(i / 12.0, QColor::fromHsvF(float(i % 12) / 12, 1, 1));
  painter.fillRect(QRectF(all.left(), bar.bottom() + 0.25 * all.height(), all.width(), 0.25 * all.height()), hue);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, at.lineWidth()));
  painter.drawRect(all);
}

void drawCorners(QPainter& painter, QSize size) {
  constexpr int kSide = TestPattern::kCornerSide;
  const int right = size.width() - kSide;
  const int bottom = size.height() - kSide;
  painter.fillRect(0, 0, kSide, kSide, QColor(TestPattern::kCorners.topLeft));
  painter.fillRect(right, 0, kSide, kSide, QColor(TestPattern::kCorners.topRight));
  painter.fillRect(0, bottom, kSide, kSide, QColor(TestPattern::kCorners.bottomLeft));
  painter.fillRect(right, bottom, kSide, kSide, QColor(TestPattern::kCorners.bottomRight));
}

}  // namespace

TestPattern::TestPattern(QSize size) : background(size, QImage::Format_RGB32) {
  const Layout at(size);
  QPainter painter(&background);
  painter.setRenderHint(QPainter::Antialiasing);
  drawSky(painter, at);
  drawHills(painter, at);
  drawGrid(painter, at);
  drawCircle(painter, at);
  drawStar(painter, at);
  painter.setRenderHint(QPainter::Antialiasing, false);
  drawStrips(painter, at);
  drawGratings(painter, at);
}

QImage TestPattern::frameAt(quint64, double seconds) {
  QImage frame = background;
  const Layout at(frame.size());
  QPainter painter(&frame);
  painter.setRenderHint(QPainter::Antialiasing);

  // A light with a tail that fades behind it.
  painter.setPen(Qt::NoPen);
  constexpr int kLights = 14;
  for (int i = kLights - 1; i >= 0; --i) {
    const double turns = std::fmod(seconds / kSecondsPerRound - i * 0.012 + 1, 1.0);
    const double radius = 0.030 * at.height * (1 - 0.8 * i / kLights);
    painter.setBrush(QColor(255, 255 - 9 * i, 200 - 12 * i, i == 0 ? 255 : 180 - 12 * i));
    painter.drawEllipse(at.onCircle(turns, at.circleRadius()), radius, radius);
  }

  const QPointF clockCentre = at.centre() - QPointF(0, 0.17 * at.height);
  const QSizeF clockSize(0.40 * at.height, 0.11 * at.height);
  const QRectF panel(clockCentre - QPointF(clockSize.width(), clockSize.height()) / 2, clockSize);
  drawSegmentClock(painter, panel, seconds);

  painter.setRenderHint(QPainter::Antialiasing, false);
  drawCorners(painter, frame.size());
  return frame;
}
