#pragma once

#include <QImage>
#include <QPointer>

#include "standalone/host/session/test_user.h"
#include "standalone/host/window/answer_mode.h"

class MessageDialog;
class QDialog;
class QPixmap;

/// The user at the windows: shows what tests ask, and takes pictures of it. Also the event filter that the dialogs of
/// tests install on themselves. Where the user is not to be asked, it works the windows by itself.
class UserInteraction : public TestUser {
  Q_OBJECT

 public:
  explicit UserInteraction(AnswerMode answerMode) : mode(answerMode) {}

  void ask(InputRequest& request, TestExecutionContext& context, const Run& run) override;

 private slots:
  void keepFrame(const QImage& frame) { lastFrame = frame; }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showDialog(InputRequest& request);
  void showMessage(InputRequest& request, TestExecutionContext& context, const Run& run);
  void savePicture(const QPixmap& picture, const char* name);

  AnswerMode mode;
  /// The test's dialog that is open.
  QPointer<QDialog> openDialog;
  QImage lastFrame;
};
