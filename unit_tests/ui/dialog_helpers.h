#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QThread>
#include <QTranslator>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "module/test_execution_context.h"
#include "ui/abstract_widget_wrapper.h"

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

/// Translates a key into itself with a mark, and only in the context of the dialogs.
class MarkingTranslator : public QTranslator {
 public:
  MarkingTranslator() { QCoreApplication::installTranslator(this); }
  QString translate(const char* context, const char* key, const char*, int) const override {
    return QLatin1String(context) == QLatin1String("CAMERA") ? QStringLiteral("<%1>").arg(QLatin1String(key))
                                                             : QString();
  }
  bool isEmpty() const override { return false; }
};

/// Runs a piece of code as a test of the host does: on a thread of its own, while this one runs the event loop.
template <class Work>
void runOnWorkerThread(Work work) {
  const std::unique_ptr<QThread> thread(QThread::create(work));
  thread->start();
  EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished(); }, 20000));
  thread->wait();
}

/// What the host does with a dialog request: runs `CreateWidget` on its own thread and returns when it has.
inline void createOnUserInterfaceThread(AbstractWidgetWrapper& wrapper, QObject& hostFilter) {
  QMetaObject::invokeMethod(
      qApp, [&] { wrapper.CreateWidget(nullptr, &hostFilter); }, Qt::BlockingQueuedConnection);
}
