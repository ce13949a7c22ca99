#pragma once

#include "ui/dialog_wrapper.h"

/// The capture test's bridge to its dialog.
class CameraWidgetWrapper : public DialogWrapper {
  Q_OBJECT

 public:
  /// `size` is the size of the camera's frames in pixels.
  CameraWidgetWrapper(QSize size, TestExecutionContext* executionContext);

  /// Always true. The picture gets the frame size as the user's screen scales it.
  [[nodiscard]] bool CreateWidget(QWidget* parent, QObject* eventFilter) override;

  /// Queues a frame for the dialog; does nothing when there is no dialog or it has been answered.
  void SendFrame(const QImage& image);
  /// Asks the dialog to close; does nothing when there is no dialog or it has been answered.
  void Close();
  /// 5 when the dialog was closed, else 0.
  [[nodiscard]] int GetResult() const;

 signals:
  void UpdateFrame(QImage image);
  void CloseDialog();

 private:
  /// The frame size on the user's screen.
  [[nodiscard]] QSize displaySize() const;
};
