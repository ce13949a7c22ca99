#include "standalone/virtual_camera/pictures/still_image.h"

#include <QPainter>

StillImage::StillImage(const QImage& image, QSize size) : frame(size, QImage::Format_RGB32) {
  frame.fill(Qt::black);
  if (image.isNull()) return;
  const QImage fitted =
      image.size() == size ? image : image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  QRect place(QPoint(), fitted.size());
  place.moveCenter(frame.rect().center());
  QPainter(&frame).drawImage(place, fitted);
}
