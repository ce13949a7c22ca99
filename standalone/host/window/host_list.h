#pragma once

#include <QEvent>
#include <QFrame>
#include <QObject>
#include <QSize>

/// Shows by a thicker frame that a list has the focus, in styles that mark only its current line. The list owns it.
class FocusMark : public QObject {
 public:
  explicit FocusMark(QFrame& list) : QObject(&list), frame(list) {
    frame.setFrameStyle(QFrame::Box | QFrame::Plain);
    frame.installEventFilter(this);
  }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) frame.setLineWidth(kFocused);
    if (event->type() == QEvent::FocusOut) frame.setLineWidth(kPlain);
    return QObject::eventFilter(watched, event);
  }

  // Pixels.
  static constexpr int kFocused = 3;
  static constexpr int kPlain = 1;

  QFrame& frame;
};

/// A list or a table of the host, which asks for little height and takes what there is.
template <class View>
class HostList : public View {
 public:
  HostList() {
    this->setMinimumHeight(kLeastHeight);
    new FocusMark(*this);
  }

  QSize sizeHint() const override { return {View::sizeHint().width(), kLeastHeight}; }

 private:
  // Pixels: some three lines.
  static constexpr int kLeastHeight = 96;
};
