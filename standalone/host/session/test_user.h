#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class InputRequest;
class TestExecutionContext;
struct Run;

/// Who is asked what tests want to know. Lives on the user-interface thread.
class TestUser : public QObject {
  Q_OBJECT

 public:
  /// Shows the request. Returns when the message is answered, with the answer in the request, or when the dialog is
  /// shown; a message whose run gets cancelled closes unanswered.
  virtual void ask(InputRequest& request, TestExecutionContext& context, const Run& run) = 0;

 signals:
  /// A window of the running test as it looked, as PNG; the names are those of `picture_names`.
  void pictureTaken(const QString& name, const QByteArray& png);
};
