#pragma once

#include <QImage>
#include <QList>

#include <cstdint>
#include <memory>

#include "ui/dialog_result.h"
#include "ui/input_dialog.h"
#include "ui/window_drag.h"

namespace Ui {
class CameraDialog;
}

/// The window of the capture test: the live picture of the camera. However it is closed, its result is 5. Only for the
/// user-interface thread.
class CameraDialog : public InputDialog {
  Q_OBJECT

 public:
  /// As for InputDialog.
  CameraDialog(QWidget* parent, QObject* eventFilter);
  ~CameraDialog() override;

  /// The size, in pixels, to which every frame is stretched; also the greatest size of the picture's label.
  void SetImageSize(int width, int height);

  /// The wrapper's result, which must outlive the dialog; null for none.
  DialogResult* resultTarget = nullptr;

 signals:
  /// The dialog is about to close itself.
  void closing();

 public slots:
  /// Shows the picture, stretched to the image size. Always true; a null image leaves the label empty.
  bool LoadFrame(QImage image);
  void Close();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void prepareForScreenReader();

  std::unique_ptr<Ui::CameraDialog> ui;
  std::int32_t imageWidth = 640;
  std::int32_t imageHeight = 480;
  /// The keyboard order with a screen reader; empty when none ran as the dialog was made.
  QList<QWidget*> focusWidgets;
  WindowDrag drag;
};
