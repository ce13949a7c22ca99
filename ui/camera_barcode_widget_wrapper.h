#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <memory>

#include "ui/abstract_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "ui/guarded_dialog.h"

class CameraBarcodeDialog;

/// The barcode test's bridge to its dialog. The test makes it with std::make_shared on its own thread and calls all but
/// `CreateWidget` there; the host's user-interface thread creates the dialog. The dialog holds a share of the wrapper
/// until it is gone, so that the test may let go at any time.
class CameraBarcodeWidgetWrapper : public QObject,
                                   public AbstractWidgetWrapper,
                                   public std::enable_shared_from_this<CameraBarcodeWidgetWrapper> {
  Q_OBJECT

 public:
  /// `size` is the size of the camera's frames in pixels.
  CameraBarcodeWidgetWrapper(QSize size, TestExecutionContext* executionContext);
  ~CameraBarcodeWidgetWrapper() override;

  /// Always true. The dialog gets no context and chooses its own size.
  bool CreateWidget(QWidget* parent, QObject* eventFilter) override;

  /// Queues a frame for the dialog; does nothing when there is no dialog or it has been answered.
  void SendFrame(const QImage& image);
  /// Asks the dialog to close; does nothing when there is no dialog or it has been answered.
  void Close();
  /// 5 when the dialog was closed, 2 when the user pressed the fail button, else 0.
  int GetResult() const;
  /// Switches the dialog, if there is one, to the second attempt: directly, on the test's thread, while the
  /// user-interface thread stands still.
  void ShowRetry();

 signals:
  void UpdateFrame(QImage image);
  void CloseDialog();

 private:
  QSize frameSize;
  GuardedDialog<CameraBarcodeDialog> dialog;
  DialogResult result = kNoAnswer;
};
