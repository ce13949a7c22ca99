#include "standalone/virtual_camera/pictures/barcode_scene.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

#include "standalone/virtual_camera/pictures/image_effects.h"
#include "standalone/virtual_camera/pictures/test_pattern.h"

namespace {

QImage drawDesk(QSize size) {
  QImage desk(size, QImage::Format_RGB32);
  QPainter painter(&desk);
  QLinearGradient wood(0, 0, size.width(), size.height());
  wood.setColorAt(0.0, QColor(0xa9, 0x82, 0x58));
  wood.setColorAt(0.55, QColor(0x8a, 0x66, 0x42));
  wood.setColorAt(1.0, QColor(0x5f, 0x44, 0x2c));
  painter.fillRect(desk.rect(), wood);
  const QPointF lamp(0.3 * size.width(), 0.15 * size.height());
  QRadialGradient light(lamp, 0.8 * size.width());
  light.setColorAt(0.0, QColor(255, 240, 205, 130));
  light.setColorAt(1.0, QColor(255, 240, 205, 0));
  painter.fillRect(desk.rect(), light);

  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(60, 36, 16, 26), std::max(1.0, size.height() / 300.0)));
  constexpr int kGrains = 26;
  for (int grain = 0; grain < kGrains; ++grain) {
    QPolygonF line;
    for (int i = 0; i <= 40; ++i) {
      const double along = i / 40.0;
      const double wave = 0.012 * std::sin(5 * along + 1.7 * grain) + 0.006 * std::sin(13 * along + 0.9 * grain);
      line << QPointF(along * size.width(), ((grain + 0.5) / kGrains + wave) * size.height());
    }
    painter.drawPolyline(line);
  }
  return desk;
}

QImage drawBackground(BarcodeBackground background, QSize size) {
  switch (background) {
    case BarcodeBackground::kDesk:
      return drawDesk(size);
    case BarcodeBackground::kTestPattern:
      return TestPattern(size).frameAt(0, 0);
    case BarcodeBackground::kWhite:
      break;
  }
  QImage white(size, QImage::Format_RGB32);
  white.fill(Qt::white);
  return white;
}

// The code on a white label with a soft shadow, turned, with room around it for what the blur spreads.
QImage drawLabel(const QImage& code, const BarcodePicture& picture, QSize frame) {
  const QImage fitted = code.convertToFormat(QImage::Format_RGB32)
                            .scaled(picture.size * frame, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  const QTransform turn = QTransform().rotate(picture.rotation);
  const double margin = 4 * picture.blur + 0.02 * frame.height() + 2;
  const QRectF bounds =
      turn.mapRect(QRectF(QPointF(), fitted.size())).adjusted(-margin, -margin, margin, margin).toAlignedRect();

  QImage layer(bounds.size().toSize(), QImage::Format_ARGB32_Premultiplied);
  layer.fill(Qt::transparent);
  QPainter painter(&layer);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.translate(-bounds.topLeft());
  painter.setTransform(turn, true);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 22));
  const QRectF card(QPointF(), fitted.size());
  for (int i = 1; i <= 4; ++i) {
    const double wider = 0.004 * i * frame.height();
    painter.drawRoundedRect(card.adjusted(-wider, -wider, wider, wider), wider, wider);
  }
  painter.drawImage(QPointF(), fitted);
  painter.end();

  const QImage soft = blurred(layer, picture.blur);
  return withContrast(soft.convertToFormat(QImage::Format_ARGB32), picture.contrast)
      .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

BarcodeScene::BarcodeScene(const BarcodePicture& picture, QSize size)
    : background(withContrast(blurred(drawBackground(picture.background, size), picture.blur), picture.contrast)),
      noise(picture.noise) {
  for (const ShownCode& code : picture.codes) {
    const QImage image(code.file);
    if (image.isNull()) continue;
    QImage layer = drawLabel(image, picture, size);
    QRect place(QPoint(), layer.size());
    place.moveCenter(background.rect().center());
    labels.push_back({code.from, code.to, std::move(layer), place.topLeft()});
  }
}

QImage BarcodeScene::frameAt(quint64 frameNumber, double seconds) {
  QImage frame = background;
  const auto label = std::find_if(labels.rbegin(), labels.rend(), [seconds](const Label& shown) {
    return shown.from <= seconds && seconds < shown.to;
  });
  if (label != labels.rend()) {
    const double remaining = std::max(0.0, 1 - (seconds - label->from) / kSecondsToArrive);
    const QPoint below(0, static_cast<int>(remaining * remaining * frame.height()));
    QPainter(&frame).drawImage(label->place + below, label->layer);
  }
  addNoise(frame, noise, static_cast<quint32>(frameNumber));
  return frame;
}
