#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

#include <cstdint>
#include <initializer_list>

#include "ui/dialog_focus.h"
#include "ui/dialog_result.h"
#include "ui/input_dialog.h"

class QLabel;

/// What the dialogs of both tests have in common: a picture in a frameless window that the mouse moves by its header,
/// Escape, and the arrow keys for the users of a screen reader. Signals and slots belong to the dialogs themselves.
/// Only for the user-interface thread.
class PictureDialog : public InputDialog {
 public:
  /// The wrapper's result; null for none. Both targets must outlive the dialog.
  DialogResult* resultTarget = nullptr;
  /// Follows QDialog::result(), which anybody may set, with each event of the dialog; null for none.
  DialogResult* dialogResultTarget = nullptr;

 protected:
  /// As for InputDialog. `hiddenWidgets` says what the arrow keys do about focusable widgets that are not visible.
  PictureDialog(QWidget* parent, QObject* eventFilter, HiddenWidgets hiddenWidgets);

  /// The widgets that the shared part works with; those without a text get a name for assistive technology. Call it as
  /// soon as they exist; the dialog owns them.
  void useParts(QWidget* newHeader, QWidget* newCloseButton, QLabel* newView);
  /// Lets the keyboard reach `readable`, the first of which takes the focus, and describes what has no text.
  void prepareForScreenReader(std::initializer_list<QWidget*> readable);
  /// Leaves the answer in the wrapper and in the dialog.
  void storeResult(int answer);
  /// The image at the size in which it is shown; a null image stays one.
  [[nodiscard]] QImage stretched(const QImage& image) const;
  void showPicture(const QImage& picture);

  virtual void onEscape() = 0;

  bool event(QEvent* event) override;
  /// Shows the focus on the picture, which covers what a style sheet draws for it.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

  /// The size to which every frame is stretched, in pixels.
  std::int32_t imageWidth = 0;
  std::int32_t imageHeight = 0;
  /// The keyboard order with a screen reader; empty when none ran as the dialog was made.
  QList<QWidget*> focusWidgets;

 private:
  const HiddenWidgets hidden;
  QWidget* header = nullptr;
  QWidget* closeButton = nullptr;
  QLabel* view = nullptr;
  bool dragging = false;
  /// Where in the window the drag began.
  QPoint dragOffset;
};
