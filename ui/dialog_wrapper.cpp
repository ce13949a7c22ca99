#include "ui/dialog_wrapper.h"

#include <cstring>

#include "ui/picture_dialog.h"

DialogWrapper::DialogWrapper(QSize size, TestExecutionContext* executionContext)
    : AbstractWidgetWrapper(executionContext), frameSize(size) {}

void* DialogWrapper::qt_metacast(const char* name) {
  if (std::strcmp(name, "AbstractWidgetWrapper") == 0) return static_cast<AbstractWidgetWrapper*>(this);
  return QObject::qt_metacast(name);
}

void DialogWrapper::adopt(PictureDialog& created) {
  result = kNoAnswer;
  dialogResult = kNoAnswer;
  created.setResult(kNoAnswer);
  created.setAttribute(Qt::WA_DeleteOnClose);

  // The share goes with the last of the dialog, which writes to the wrapper until then.
  const auto forget = [this, share = weak_from_this().lock()] { dialog = nullptr; };
  connect(&created, &QObject::destroyed, &created, forget, Qt::DirectConnection);
  // Only now: without that connection nothing would reset the pointer when the dialog goes.
  dialog = &created;
  connect(this, SIGNAL(UpdateFrame(QImage)), &created, SLOT(LoadFrame(QImage)));
  connect(this, SIGNAL(CloseDialog()), &created, SLOT(close()));
  created.resultTarget = &result;
  created.dialogResultTarget = &dialogResult;
}

void DialogWrapper::bringToFront(QDialog& created) {
  created.setWindowFlags(created.windowFlags() | Qt::WindowStaysOnTopHint);
  // Opened and hidden once: the window system takes a window to the front only as it appears.
  created.open();
  created.hide();
  created.setWindowFlags(created.windowFlags() & ~Qt::WindowStaysOnTopHint);
  created.show();
}

QImage DialogWrapper::blackImage(QSize size) {
  QImage black(size, QImage::Format_RGB32);
  black.fill(Qt::black);
  return black;
}
