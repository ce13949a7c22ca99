#pragma once

#include <QImage>

#include <memory>

#include "ui/picture_dialog.h"

namespace Ui {
class CameraDialog;
}

/// The window of the capture test: the live picture of the camera. However it is closed, its result is 5. Only for the
/// user-interface thread.
class CameraDialog : public PictureDialog {
  Q_OBJECT

 public:
  /// As for InputDialog.
  CameraDialog(QWidget* parent, QObject* eventFilter);
  ~CameraDialog() override;

  /// The size, in pixels, to which every frame is stretched; also the greatest size of the picture's label.
  void SetImageSize(int width, int height);

 signals:
  /// The dialog is about to close itself.
  void closing();

 public slots:
  /// Shows the picture, stretched to the image size. Always true; a null image leaves the label empty.
  bool LoadFrame(QImage image);
  void Close();

 protected:
  void onEscape() override;

 private:
  std::unique_ptr<Ui::CameraDialog> ui;
};
