#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <atomic>
#include <memory>

#include "ui/abstract_widget_wrapper.h"
#include "ui/dialog_result.h"

class PictureDialog;
class QDialog;

/// What the tests' bridges to their dialogs have in common. A test makes its wrapper with std::make_shared on its own
/// thread and calls all but `CreateWidget` there; the host's user-interface thread creates the dialog. The dialog holds
/// a share of the wrapper until it is gone, so that the test may let go at any time.
class DialogWrapper : public QObject, public AbstractWidgetWrapper, public std::enable_shared_from_this<DialogWrapper> {
 public:
  /// Answers for AbstractWidgetWrapper too, which moc does not see behind this class.
  void* qt_metacast(const char* name) override;

 protected:
  /// `size` is the size of the camera's frames in pixels.
  DialogWrapper(QSize size, TestExecutionContext* executionContext);

  /// Takes the new dialog and connects it. For the user-interface thread.
  void adopt(PictureDialog& created);
  /// Shows the dialog above all other windows, without keeping it there. For the user-interface thread.
  static void bringToFront(QDialog& created);
  [[nodiscard]] static QImage blackImage(QSize size);
  /// Whether there is a dialog that has no result yet. For any thread.
  [[nodiscard]] bool isOpen() const { return dialog && dialogResult == kNoAnswer; }

  const QSize frameSize;
  /// Not owned; null before the dialog's creation and after its end. Other threads than the user-interface thread only
  /// look whether it is null. A QObject, since a dialog that is going is nothing more for a while.
  std::atomic<QObject*> dialog = nullptr;
  /// The user's answer.
  DialogResult result = kNoAnswer;

 private:
  /// The dialog's QDialog::result(), as the dialog passes it on.
  DialogResult dialogResult = kNoAnswer;
};
