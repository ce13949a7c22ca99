#pragma once

#include <QImage>
#include <QList>

#include <cstdint>
#include <memory>

#include "ui/dialog_result.h"
#include "ui/input_dialog.h"
#include "ui/window_drag.h"

namespace Ui {
class CameraBarcodeDialog;
}

/// The window of the barcode test: the live picture with a viewfinder, and a button to give up. Its result is 2 after
/// that button and 5 after every other way of closing. Only for the user-interface thread, but for `ShowRetry`.
class CameraBarcodeDialog : public InputDialog {
  Q_OBJECT

 public:
  /// As for InputDialog.
  CameraBarcodeDialog(QWidget* parent, QObject* eventFilter);
  ~CameraBarcodeDialog() override;

  /// Switches to the second attempt, for good. The test's thread calls it while the dialog is open, so that it must not
  /// do more than hide and show widgets and change what takes the focus.
  void ShowRetry();

  /// The wrapper's result, which must outlive the dialog; null for none.
  DialogResult* resultTarget = nullptr;

 signals:
  /// The dialog is about to close itself.
  void closing();

 public slots:
  /// Shows the picture, stretched, with the viewfinder. Always true; a null image leaves the label empty.
  bool LoadFrame(QImage image);
  /// Keeps the answer of the fail button.
  void Close();
  void OnFailButtonClicked();
  void OnClosePushButtonClicked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void setTexts();
  void prepareForScreenReader();
  void fitToScreen();

  std::unique_ptr<Ui::CameraBarcodeDialog> ui;
  WindowDrag drag;
  std::int32_t imageWidth = 0;
  std::int32_t imageHeight = 0;
  std::int32_t grayAreaHeight = 0;
  /// The keyboard order with a screen reader; empty when none ran as the dialog was made.
  QList<QWidget*> focusWidgets;
  /// Whether the user pressed the fail button.
  bool failed = false;
};
