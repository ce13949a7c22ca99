#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <memory>

#include "ui/abstract_widget_wrapper.h"
#include "ui/dialog_result.h"
#include "ui/guarded_dialog.h"

class CameraDialog;

/// The capture test's bridge to its dialog. The test makes it with std::make_shared on its own thread and calls all but
/// `CreateWidget` there; the host's user-interface thread creates the dialog. The dialog holds a share of the wrapper
/// until it is gone, so that the test may let go at any time.
class CameraWidgetWrapper : public QObject,
                            public AbstractWidgetWrapper,
                            public std::enable_shared_from_this<CameraWidgetWrapper> {
  Q_OBJECT

 public:
  /// `size` is the size of the camera's frames in pixels.
  CameraWidgetWrapper(QSize size, TestExecutionContext* executionContext);
  ~CameraWidgetWrapper() override;

  /// Always true.
  bool CreateWidget(QWidget* parent, QObject* eventFilter) override;

  /// Queues a frame for the dialog; does nothing when there is no dialog or it has been answered.
  void SendFrame(const QImage& image);
  /// Asks the dialog to close; does nothing when there is no dialog or it has been answered.
  void Close();
  /// 5 when the dialog was closed, else 0.
  int GetResult() const;

 signals:
  void UpdateFrame(QImage image);
  void CloseDialog();

 private:
  /// The frame size on the user's screen.
  QSize displaySize() const;

  QSize frameSize;
  GuardedDialog<CameraDialog> dialog;
  DialogResult result = kNoAnswer;
};
