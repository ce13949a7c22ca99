#pragma once

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMetaEnum>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <set>
#include <vector>

#include <gmock/gmock.h>

#include "unit_tests/ui/dialog_helpers.h"

// A walk over what assistive technology finds in a window, and with the keyboard over what can take the focus.

/// What breaks a rule for a reason. One that does not break it fails the walk as well.
struct AccessibilityException {
  const char* widget;
  const char* rule;
  const char* reason;
};
inline constexpr AccessibilityException kAccessibilityExceptions[] = {
    {"camera_barcode_test_fail_text_label", "plain text", "its text format is required to be Qt::AutoText"},
};

class AccessibilityWalk {
 public:
  /// `window` must be the active window, and outlive the walk.
  explicit AccessibilityWalk(QWidget& checkedWindow) : window(checkedWindow) {
    collect(*QAccessible::queryAccessibleInterface(&window));
  }

  /// One line each: window, role, name, description, and whether the keyboard gets there.
  void print(const char* title) const {
    for (const QAccessibleInterface* element : elements) {
      const auto text = [&](QAccessible::Text part) { return element->text(part).toStdString(); };
      std::printf("%s | %s | %s | %s | %s\n", title,
                  QMetaEnum::fromType<QAccessible::Role>().valueToKey(element->role()), text(QAccessible::Name).c_str(),
                  text(QAccessible::Description).c_str(), element->state().focusable ? "focusable" : "");
    }
  }

  /// With `readable` the keyboard must get to every text and picture, so that a screen reader reads it.
  void checkElements(bool readable) const {
    std::set<QString> names;
    for (const QAccessibleInterface* element : elements) {
      const bool focusable = element->state().focusable;
      const bool container = element->childCount() > 0 && !focusable;
      check(element->role() != QAccessible::NoRole && (container || element->role() != QAccessible::Client), "role",
            *element);
      const auto* const label = qobject_cast<QLabel*>(element->object());
      const bool hasText = label && !label->text().isEmpty();
      check(!hasText || label->textFormat() == Qt::PlainText, "plain text", *element);
      check(!readable || focusable || (!hasText && element->role() != QAccessible::Graphic), "is read", *element);
      if (element->object() != &window) {
        check(element->parent()->rect().contains(element->rect()), "inside its parent", *element);
      }
      if (!focusable) continue;
      const QString name = element->text(QAccessible::Name).remove('&').trimmed();
      check(!name.isEmpty(), "name", *element);
      check(!element->object() || names.insert(name).second, "name of its own", *element);
    }
  }

  /// Steps with `key` until the focus has been somewhere before: it must have been on all that is focusable, on nothing
  /// else, and seen at each place. `backKey` must be the way back.
  void checkFocus(int key, int backKey) const {
    std::set<const QObject*> wanted;
    for (const QAccessibleInterface* element : elements) {
      const auto* const widget = qobject_cast<QWidget*>(element->object());
      if (widget && (widget->focusPolicy() & Qt::TabFocus)) wanted.insert(widget);
    }
    std::set<const QObject*> visited;
    // As real keys leave it: some styles show the focus only then.
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    // A window may open with the focus on none of its parts.
    if (window.focusWidget() == &window) pressKey(window, key);
    QWidget* focused = window.focusWidget();
    ASSERT_TRUE(focused) << "nothing has the focus at first";
    while (visited.insert(focused).second) {
      for (const int step : {backKey, key}) pressKey(window, step);
      EXPECT_EQ(window.focusWidget(), focused) << "not the way back";
      QWidget* const left = focused;
      const QImage with = picture(*left);
      pressKey(window, key);
      ASSERT_TRUE(focused = window.focusWidget());
      // Where there is no other place, the focus goes and comes back.
      if (focused == left) left->clearFocus();
      check(picture(*left) != with, "focus is seen", *QAccessible::queryAccessibleInterface(left));
      focused->setFocus(Qt::TabFocusReason);
    }
    EXPECT_EQ(visited, wanted);
  }

 private:
  void collect(QAccessibleInterface& element) {
    elements.push_back(&element);
    for (int i = 0; i < element.childCount(); ++i) {
      QAccessibleInterface* const child = element.child(i);
      if (child && !child->state().invisible) collect(*child);
    }
  }

  /// What the window shows where `widget` is.
  QImage picture(QWidget& widget) const {
    QCoreApplication::processEvents();
    return window.grab({widget.mapTo(&window, QPoint()), widget.size()}).toImage();
  }

  static void check(bool holds, const char* rule, const QAccessibleInterface& element) {
    const QString name = element.object() ? element.object()->objectName() : element.text(QAccessible::Name);
    const bool excepted = std::any_of(
        std::begin(kAccessibilityExceptions), std::end(kAccessibilityExceptions), [&](const auto& exception) {
          return name == QLatin1String(exception.widget) && std::strcmp(rule, exception.rule) == 0;
        });
    EXPECT_NE(holds, excepted) << name.toStdString() << ": " << rule << (excepted ? " needs no exception" : "");
  }

  QWidget& window;
  /// The window and all that is visible in it; Qt's.
  std::vector<QAccessibleInterface*> elements;
};
