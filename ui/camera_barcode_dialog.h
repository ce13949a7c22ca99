#pragma once

#include <QImage>

#include <cstdint>
#include <memory>

#include "ui/picture_dialog.h"

namespace Ui {
class CameraBarcodeDialog;
}

/// The window of the barcode test: the live picture with a viewfinder, and a button to give up. Its result is 2 after
/// that button and 5 after every other way of closing. Only for the user-interface thread.
class CameraBarcodeDialog : public PictureDialog {
  Q_OBJECT

 public:
  /// As for InputDialog.
  CameraBarcodeDialog(QWidget* parent, QObject* eventFilter);
  ~CameraBarcodeDialog() override;

  /// Switches to the second attempt, for good.
  void ShowRetry();

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
  void onEscape() override;

 private:
  void setTexts();
  void fitToScreen();

  std::unique_ptr<Ui::CameraBarcodeDialog> ui;
  /// The least height of the areas above and below the picture, in pixels.
  std::int32_t grayAreaHeight = 0;
  /// Whether the user pressed the fail button.
  bool failed = false;
};
