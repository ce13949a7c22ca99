#pragma once

#include <QString>

#include "standalone/host/command_line.h"

class MessageDialog;
class Pictures;
class QDialog;

/// Stands in front of the screen when nobody else does: takes a picture of each window, and, unless the real user is to
/// be asked, clicks the real buttons. User-interface thread.
class UnattendedUser {
 public:
  /// `pictureBook` must outlive this and all windows.
  UnattendedUser(AnswerMode answerMode, const Pictures& pictureBook) : mode(answerMode), pictures(pictureBook) {}

  /// Call when the window is about to be shown; it acts a moment later. `name` is the picture's.
  void attendMessage(MessageDialog& dialog, const QString& name) const;
  void attendQuestion(MessageDialog& dialog, const QString& name) const;
  /// A test's own dialog.
  void attendDialog(QDialog& dialog, const QString& name) const;

 private:
  AnswerMode mode;
  const Pictures& pictures;
};
