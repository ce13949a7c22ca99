#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include "standalone/host/unattended_user.h"

class InputRequest;
class MessageDialog;
class QDialog;
class TestExecutionContext;

/// Carries the requests of tests to the user. Lives on the user-interface thread, and is the event filter that the
/// dialogs of tests install on themselves.
class UserInteraction : public QObject {
  Q_OBJECT

 public:
  /// `pictureBook` must outlive this.
  UserInteraction(AnswerMode answerMode, const Pictures& pictureBook);

  /// Called on a test's thread. Returns when the message is answered or the dialog shown; a message whose run gets
  /// cancelled closes unanswered. Pictures get `pictureName` and the kind of window as their names.
  void submit(InputRequest& request, TestExecutionContext& context, const QString& pictureName);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void show(InputRequest& request, TestExecutionContext& context, const QString& pictureName);
  void showDialog(InputRequest& request, const QString& pictureName);
  void showMessage(InputRequest& request, TestExecutionContext& context, const QString& pictureName);

  const Pictures& pictures;
  UnattendedUser user;
  /// The test's dialog that is open.
  QPointer<QDialog> openDialog;
  QString dialogPictureName;
};
