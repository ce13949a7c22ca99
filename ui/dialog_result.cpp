#include "ui/dialog_result.h"

#include <QDialog>

void storeResult(QDialog& dialog, DialogResult* target, int answer) {
  if (target) target->store(answer, std::memory_order_relaxed);
  dialog.setResult(answer);
}

void bringToFront(QDialog& dialog) {
  dialog.setWindowFlags(dialog.windowFlags() | Qt::WindowStaysOnTopHint);
  // Opened and hidden once: the window system takes a window to the front only as it appears.
  dialog.open();
  dialog.hide();
  dialog.setWindowFlags(dialog.windowFlags() & ~Qt::WindowStaysOnTopHint);
  dialog.show();
}
