#pragma once

#include <QFrame>
#include <QSize>

class QFocusEvent;

/// A list or a table of the host. It asks for little height and takes what there is, and shows by a thicker frame that
/// it has the focus: some styles mark only its current line.
template <class View>
class HostList : public View {
 public:
  HostList() {
    this->setFrameStyle(QFrame::Box | QFrame::Plain);
    this->setMinimumHeight(kLeastHeight);
  }

  QSize sizeHint() const override { return {View::sizeHint().width(), kLeastHeight}; }

 protected:
  void focusInEvent(QFocusEvent* event) override {
    this->setLineWidth(kFocusedFrame);
    View::focusInEvent(event);
  }
  void focusOutEvent(QFocusEvent* event) override {
    this->setLineWidth(kPlainFrame);
    View::focusOutEvent(event);
  }

 private:
  // Pixels: some three lines.
  static constexpr int kLeastHeight = 96;
  static constexpr int kFocusedFrame = 3;
  static constexpr int kPlainFrame = 1;
};
