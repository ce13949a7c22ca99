#include "ui/viewfinder.h"

#include <QImage>
#include <QPainter>

namespace {

/// Four corner marks around the centre, in pixels from it.
struct CornerMarks {
  QPoint corner;
  /// Where the horizontal arm ends.
  int armEndX;
  /// Where the vertical arm ends.
  int armEndY;
};

constexpr CornerMarks kSmallSquare = {{100, 100}, 70, 70};
constexpr CornerMarks kLargeSquare = {{130, 130}, 100, 100};
constexpr CornerMarks kSmallRectangle = {{230, 50}, 205, 25};
constexpr CornerMarks kLargeRectangle = {{340, 60}, 310, 30};

void draw(QPainter& painter, QPoint center, const CornerMarks& marks) {
  for (const int right : {-1, 1}) {
    for (const int down : {-1, 1}) {
      const auto place = [=](int x, int y) { return center + QPoint(right * x, down * y); };
      const QPoint corner = place(marks.corner.x(), marks.corner.y());
      painter.drawLine(corner, place(marks.armEndX, marks.corner.y()));
      painter.drawLine(corner, place(marks.corner.x(), marks.armEndY));
    }
  }
}

}  // namespace

void drawViewfinder(QImage& image, bool small) {
  if (image.isNull()) return;
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::gray, 5.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPoint center = image.rect().center();
  draw(painter, center, small ? kSmallSquare : kLargeSquare);
  draw(painter, center, small ? kSmallRectangle : kLargeRectangle);
}
