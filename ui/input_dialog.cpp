#include "ui/input_dialog.h"

#include <QDebug>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include <chrono>

#include "module/test_execution_context.h"

InputDialog::InputDialog(QWidget*, QObject* eventFilter) : AccessibleDialogBase(nullptr) {
  installEventFilter(eventFilter);
  setAttribute(Qt::WA_DeleteOnClose, false);
  setWindowFlags(Qt::WindowStaysOnTopHint);
  setWindowModality(Qt::WindowModal);
  setModal(true);
}

int InputDialog::exec() {
  // With WA_DeleteOnClose the dialog may be gone before the loop returns: it then answers what it last finished with.
  const QPointer<InputDialog> self(this);
  int lastResult = result();
  QEventLoop loop;
  connect(this, SIGNAL(finished(int)), &loop, SLOT(quit()));
  connect(this, &QDialog::finished, &loop, [this, &lastResult] { lastResult = result(); });
  connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);

  QTimer timer;
  const auto checkForStop = [self] {
    if (self && self->context && self->context->isCancelled()) emit self->finished(0);
  };
  connect(&timer, &QTimer::timeout, &timer, checkForStop, Qt::DirectConnection);

  qDebug() << "Before show: " << result();
  show();
  qDebug() << "Before loop: " << result();
  timer.start(std::chrono::milliseconds(1000));
  loop.exec();
  if (self) lastResult = result();
  qDebug() << "After the event loop: " << lastResult;
  return lastResult;
}

void InputDialog::accept() {
  done(result());
}

void InputDialog::reject() {
  done(result());
}
