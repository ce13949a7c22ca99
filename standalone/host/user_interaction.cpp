#include "standalone/host/user_interaction.h"

#include <QDialog>
#include <QEvent>
#include <QTimer>

#include <chrono>

#include "module/test_execution_context.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/message_dialog.h"
#include "standalone/host/pictures.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

using namespace std::chrono_literals;

UserInteraction::UserInteraction(AnswerMode answerMode, const Pictures& pictureBook)
    : pictures(pictureBook), user(answerMode, pictureBook) {}

void UserInteraction::submit(InputRequest& request, TestExecutionContext& context, const QString& pictureName) {
  QMetaObject::invokeMethod(
      this, [&] { show(request, context, pictureName); }, Qt::BlockingQueuedConnection);
}

bool UserInteraction::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) {
    openDialog = qobject_cast<QDialog*>(watched);
  } else if (event->type() == QEvent::Close && watched == openDialog && openDialog->isVisible()) {
    pictures.save(dialogPictureName + QStringLiteral("-end"));
    openDialog = nullptr;
  }
  return QObject::eventFilter(watched, event);
}

void UserInteraction::show(InputRequest& request, TestExecutionContext& context, const QString& pictureName) {
  request.answer = MessageDialog::kUnanswered;
  if (request.widget) {
    showDialog(request, pictureName);
  } else {
    showMessage(request, context, pictureName);
  }
}

void UserInteraction::showDialog(InputRequest& request, const QString& pictureName) {
  dialogPictureName = pictureName + QStringLiteral("-dialog");
  // Whether there is a dialog is seen by its being shown.
  static_cast<void>(request.widget->CreateWidget(nullptr, this));
  if (openDialog) {
    user.attendDialog(*openDialog, dialogPictureName);
  }
}

void UserInteraction::showMessage(InputRequest& request, TestExecutionContext& context, const QString& pictureName) {
  const bool isQuestion = request.secondCode == InputRequest::kQuestion;
  MessageDialog dialog(isQuestion ? MessageDialog::Kind::kQuestion : MessageDialog::Kind::kMessage,
                       keyText(request.firstText), keyText(request.secondText));
  if (isQuestion) {
    user.attendQuestion(dialog, pictureName + QStringLiteral("-question"));
  } else {
    user.attendMessage(dialog, pictureName + QStringLiteral("-message"));
  }
  QTimer cancelCheck;
  connect(&cancelCheck, &QTimer::timeout, &dialog, [&] {
    if (context.isCancelled()) {
      dialog.close();
    }
  });
  cancelCheck.start(100ms);
  dialog.exec();
  request.answer = dialog.answer();
}
