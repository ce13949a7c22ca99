#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPushButton>
#include <QThread>
#include <QTranslator>
#include <QtCore/qtestsupport_core.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "ui/camera_barcode_dialog.h"
#include "ui/camera_dialog.h"
#include "unit_tests/fakes/fake_platform.h"

// What the tests of the dialogs share.

/// A host's event filter that lets everything pass.
inline QObject hostFilter;

/// The open dialog of a class; null when there is none.
template <class Dialog>
Dialog* openDialog() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* const dialog = qobject_cast<Dialog*>(widget)) return dialog;
  }
  return nullptr;
}

template <class Dialog>
std::unique_ptr<Dialog> dialogWithPicture() {
  auto dialog = std::make_unique<Dialog>(nullptr, &hostFilter);
  QImage frame(640, 480, QImage::Format_RGB32);
  frame.fill(Qt::darkGray);
  dialog->LoadFrame(frame);
  return dialog;
}

/// Shows a window and makes it the active one, so that its widgets can have the focus.
inline void activate(QWidget& window) {
  window.show();
  QApplication::setActiveWindow(&window);
  QTest::qWait(20);
}

/// Presses a key as the keyboard does: the focused widget gets it, and what that leaves goes on to the dialog.
inline void pressKey(QWidget& dialog, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(dialog.focusWidget() ? dialog.focusWidget() : &dialog, &event);
}

/// Signatures of the signals and slots that a class adds, in order.
inline std::string ownMethods(const QMetaObject& meta) {
  QByteArrayList signatures;
  for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) signatures += meta.method(i).methodSignature();
  return signatures.join(' ').toStdString();
}

/// Translates a key into itself with marks that must not act, and only in the context of the dialogs.
class MarkingTranslator : public QTranslator {
 public:
  MarkingTranslator() { QCoreApplication::installTranslator(this); }
  QString translate(const char* context, const char* key, const char*, int) const override {
    return QLatin1String(context) == QLatin1String("CAMERA") ? QStringLiteral("<%1&>").arg(QLatin1String(key))
                                                             : QString();
  }
  bool isEmpty() const override { return false; }
};

/// A host's event filter that looks at the dialog whenever it is shown.
class ShowObserver : public QObject {
 public:
  explicit ShowObserver(std::function<void(const QWidget&)> look) : onShow(std::move(look)) {}
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show) onShow(*static_cast<QWidget*>(object));
    return false;
  }

 private:
  std::function<void(const QWidget&)> onShow;
};

/// A dialog without a wrapper.
template <class Dialog>
class DialogTest : public testing::Test {
 protected:
  static constexpr bool kBarcode = std::is_same_v<Dialog, CameraBarcodeDialog>;
  static constexpr const char* kPrefix = kBarcode ? "camera_barcode_test_" : "camera_capture_test_";
  static constexpr const char* kView = kBarcode ? "camera_image" : "lb_image_view";

  void SetUp() override { fakePlatform() = {}; }

  Dialog& create() {
    dialog = std::make_unique<Dialog>(nullptr, &hostFilter);
    dialog->resultTarget = &result;
    return *dialog;
  }
  void activate() { ::activate(create()); }
  /// Opens a new dialog, which must be closed with `answer` after `act`.
  void expectAnswer(int answer, const std::function<void()>& act) {
    result = 0;
    activate();
    int closing = 0;
    QObject::connect(dialog.get(), &Dialog::closing, [&] { ++closing; });
    act();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(result, answer);
    EXPECT_EQ(dialog->result(), answer);
    EXPECT_GE(closing, 1);
  }
  template <class Widget = QWidget>
  Widget* part(const char* name) const {
    return dialog->template findChild<Widget*>(QLatin1String(kPrefix) + QLatin1String(name));
  }
  std::string focused() const {
    const QWidget* const widget = dialog->focusWidget();
    return widget ? widget->objectName().remove(QLatin1String(kPrefix)).toStdString() : "";
  }

  DialogResult result{0};
  std::unique_ptr<Dialog> dialog;
};
