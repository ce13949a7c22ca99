#include "standalone/host/window/user_interaction.h"

#include <QBuffer>
#include <QDialog>
#include <QEvent>
#include <QPixmap>
#include <QTimer>

#include <chrono>

#include "module/test_execution_context.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/session/run.h"
#include "standalone/host/window/message_dialog.h"
#include "standalone/host/window/unattended_user.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

using namespace std::chrono_literals;

namespace {

// Long enough for a window to be painted, and for a camera's picture to come.
constexpr auto kMessageDelay = 400ms;
constexpr auto kDialogDelay = 1000ms;
constexpr auto kCancelCheckInterval = 100ms;

}  // namespace

void UserInteraction::ask(InputRequest& request, TestExecutionContext& context, const Run& run) {
  if (request.widget) return showDialog(request);
  showMessage(request, context, run);
}

bool UserInteraction::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) {
    openDialog = qobject_cast<QDialog*>(watched);
  } else if (event->type() == QEvent::Close && watched == openDialog && openDialog->isVisible()) {
    savePicture(openDialog->grab(), picture_names::kDialogEnd);
    if (!lastFrame.isNull()) savePicture(QPixmap::fromImage(lastFrame), picture_names::kFrame);
    openDialog = nullptr;
  }
  return QObject::eventFilter(watched, event);
}

void UserInteraction::showDialog(InputRequest& request) {
  lastFrame = {};
  // The wrappers of the module's own tests hand the camera's pictures on by a signal.
  const auto* wrapper = dynamic_cast<const QObject*>(request.widget);
  if (wrapper && wrapper->metaObject()->indexOfSignal("UpdateFrame(QImage)") >= 0)
    connect(wrapper, SIGNAL(UpdateFrame(QImage)), this, SLOT(keepFrame(QImage)));
  // Whether there is a dialog is seen by its being shown.
  static_cast<void>(request.widget->CreateWidget(nullptr, this));
  if (!openDialog) return;
  QTimer::singleShot(kDialogDelay, openDialog, [this, dialog = openDialog.data()] {
    savePicture(dialog->grab(), picture_names::kDialog);
    workDialog(*dialog, mode);
  });
}

void UserInteraction::showMessage(InputRequest& request, TestExecutionContext& context, const Run& run) {
  const bool isQuestion = request.secondCode == InputRequest::kQuestion;
  MessageDialog dialog(isQuestion ? MessageDialog::Kind::kQuestion : MessageDialog::Kind::kMessage,
                       keyText(QString::fromStdString(request.firstText)),
                       keyText(QString::fromStdString(request.secondText)), run.camera.name);
  QTimer::singleShot(kMessageDelay, &dialog, [&] {
    savePicture(dialog.grab(), isQuestion ? picture_names::kQuestion : picture_names::kMessage);
    workMessage(dialog, isQuestion, mode);
  });
  QTimer cancelCheck;
  connect(&cancelCheck, &QTimer::timeout, &dialog, [&] {
    if (context.isCancelled()) dialog.close();
  });
  cancelCheck.start(kCancelCheckInterval);
  dialog.exec();
  request.answer = dialog.answer();
}

void UserInteraction::savePicture(const QPixmap& picture, const char* name) {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "PNG");
  emit pictureTaken(QLatin1String(name), png);
}
