#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

/// The frame of a window that the host draws itself: a header with icon, title and close button, and a body. Makes its
/// window frameless and gives it the host's style sheet. The header moves the window.
class WindowFrame : public QWidget {
  Q_OBJECT

 public:
  /// Fills `window`, which owns it.
  WindowFrame(QWidget& window, const QString& title);

  /// What lies below the header, without margins.
  QVBoxLayout& body() { return *bodyLayout; }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  QVBoxLayout* bodyLayout;
};
