#include "benchmarks/codeless_frames.h"

#include <QFont>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <random>

namespace {

QImage blank(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

QImage drawModules(QSize size, int module, const std::function<bool(int column, int row)>& isBlack) {
  QImage image = blank(size);
  QPainter painter(&image);
  for (int row = 0; row * module < size.height(); ++row) {
    for (int column = 0; column * module < size.width(); ++column) {
      if (isBlack(column, row)) painter.fillRect(column * module, row * module, module, module, Qt::black);
    }
  }
  return image;
}

}  // namespace

QImage drawStripes(QSize size, quint32 seed) {
  QImage image = blank(size);
  QPainter painter(&image);
  std::mt19937 engine(seed);
  for (int x = 0; x < size.width();) {
    const int width = 1 + static_cast<int>(engine() % 9);
    painter.fillRect(x, 0, width, size.height(), Qt::black);
    x += width + 1 + static_cast<int>(engine() % 9);
  }
  return image;
}

QImage drawPage(QSize size, quint32 seed) {
  static const char* const kTypefaces[] = {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"};
  static const char* const kWords[] = {"camera", "Model", "Made in", "warranty", "S/N", "4006381333931", "*LABEL39*",
                                       "the",    "and",   "of",      "minimum",  "5V",  "illness",       "||| || |"};
  std::mt19937 engine(seed);
  QFont font(QString::fromLatin1(kTypefaces[engine() % 3]));
  font.setPixelSize(9 + static_cast<int>(engine() % 50));
  font.setBold(engine() % 2 == 1);
  QString text;
  for (int i = 0; i < 1500; ++i) text += QLatin1String(kWords[engine() % std::size(kWords)]) + QLatin1Char(' ');

  QImage image = blank(size);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::TextWrapAnywhere, text);
  return image;
}

QImage drawTiledFinders(QSize size, int module) {
  return drawModules(size, module, [](int column, int row) {
    // Distance from the middle of a pattern of 7 modules, which has a white gap of one module behind it.
    const int distance = std::max(std::abs(column % 8 - 3), std::abs(row % 8 - 3));
    return distance <= 1 || distance == 3;
  });
}

QImage drawRandomModules(QSize size, int module, quint32 seed) {
  std::mt19937 engine(seed);
  return drawModules(size, module, [&engine](int, int) { return engine() % 2 == 0; });
}
