#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QMetaMethod>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>

#include <atomic>
#include <string>
#include <vector>

#include "module/test_execution_context.h"

// What the tests of the dialogs share.

/// A context of which only the stop query says something.
class StoppableContext : public TestExecutionContext {
 public:
  SystemComponent* getComponent() override { return nullptr; }
  MessageList* getMessageList() override { return nullptr; }
  ProgressReporter* getProgressReporter() override { return nullptr; }
  bool isCancelled() override { return cancelled; }
  EventSource* getEventSource() override { return nullptr; }

  std::atomic<bool> cancelled{false};
};

/// The open dialog of a class; null when there is none.
template <class Dialog>
Dialog* openDialog() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* const dialog = qobject_cast<Dialog*>(widget)) return dialog;
  }
  return nullptr;
}

template <class Widget = QWidget>
Widget* child(const QObject& dialog, const std::string& name) {
  return dialog.findChild<Widget*>(QString::fromStdString(name));
}

inline void pressKey(QWidget& dialog, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&dialog, &event);
}

inline void sendMouse(QWidget& dialog, QEvent::Type type, QPoint position, QPoint global) {
  const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, position, global, button, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&dialog, &event);
}

/// Shows the dialog and makes it the active window, so that its widgets can have the focus.
inline void activate(QWidget& dialog) {
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  QTest::qWait(20);
}

/// Signatures of the signals and slots that a class adds, in order.
inline std::vector<std::string> ownMethods(const QMetaObject& meta) {
  std::vector<std::string> signatures;
  for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
    signatures.push_back(meta.method(i).methodSignature().toStdString());
  }
  return signatures;
}
