#include "ui/window_drag.h"

#include <QMouseEvent>
#include <QWidget>

void WindowDrag::press(QWidget& window, const QWidget& header, const QWidget& closeButton, const QMouseEvent& event) {
  if (!header.underMouse() || closeButton.underMouse()) return;
  dragging = true;
  dragOffset = event.position().toPoint();
  window.setCursor(Qt::ClosedHandCursor);
}

void WindowDrag::move(QWidget& window, const QMouseEvent& event) const {
  if (dragging) window.move(event.globalPosition().toPoint() - dragOffset);
}

void WindowDrag::release(QWidget& window, const QWidget& header) {
  if (!header.underMouse()) return;
  dragging = false;
  window.unsetCursor();
}
