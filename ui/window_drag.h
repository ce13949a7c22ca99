#pragma once

#include <QPoint>

class QMouseEvent;
class QWidget;

/// Moves a frameless window with the mouse by its header. The window passes its own mouse events on.
class WindowDrag {
 public:
  /// A press on the header, but not on the close button in it, begins a drag.
  void press(QWidget& window, const QWidget& header, const QWidget& closeButton, const QMouseEvent& event);
  void move(QWidget& window, const QMouseEvent& event) const;
  /// Only a release over the header ends the drag: until then the window follows the mouse.
  void release(QWidget& window, const QWidget& header);

 private:
  bool dragging = false;
  /// Where in the window the drag began.
  QPoint dragOffset;
};
