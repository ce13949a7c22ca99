#pragma once

#include "ui/dialog_wrapper.h"

/// The barcode test's bridge to its dialog.
class CameraBarcodeWidgetWrapper : public DialogWrapper {
  Q_OBJECT

 public:
  /// `size` is the size of the camera's frames in pixels.
  CameraBarcodeWidgetWrapper(QSize size, TestExecutionContext* executionContext);

  /// Always true. The dialog gets no context and chooses its own size.
  [[nodiscard]] bool CreateWidget(QWidget* parent, QObject* eventFilter) override;

  /// Queues a frame for the dialog; does nothing when there is no dialog or it has been answered.
  void SendFrame(const QImage& image);
  /// Asks the dialog to close; does nothing when there is no dialog or it has been answered.
  void Close();
  /// 5 when the dialog was closed, 2 when the user pressed the fail button, else 0.
  [[nodiscard]] int GetResult() const;
  /// Switches the dialog, if there is one, to the second attempt: at once on the user-interface thread, otherwise
  /// through it. Returns when it has happened, at the latest after 500 ms; it then follows.
  void ShowRetry();

 signals:
  void UpdateFrame(QImage image);
  void CloseDialog();
};
