#pragma once

#include <QBoxLayout>
#include <QWidget>

#include <span>

#include <gtest/gtest.h>

/// One widget of a form, and the layout in it.
struct FormWidget {
  const char* name;
  const char* className;
  const char* parent;
  /// Horizontal and vertical.
  QSizePolicy::Policy policies[2] = {QSizePolicy::Preferred, QSizePolicy::Preferred};
  Qt::FocusPolicy focus = Qt::NoFocus;
  const char* layout = "";
  const char* layoutClass = "";
  /// All four margins of the layout; -1 for the style's own.
  int margin = -1;
  /// How the parent's layout places the widget.
  Qt::Alignment placed = {};
};

/// Checks all widgets of a form in their order, the dialog itself first.
inline void checkForm(const QWidget& dialog, std::span<const FormWidget> expected) {
  QList<const QWidget*> widgets{&dialog};
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) widgets.append(widget);
  ASSERT_EQ(widgets.size(), static_cast<qsizetype>(expected.size()));
  QWidget window;
  auto* const plain = new QWidget(&window);
  const auto* const plainLayout = new QVBoxLayout(plain);
  for (const FormWidget& form : expected) {
    SCOPED_TRACE(form.name);
    const QWidget* const widget = *form.parent == '\0' ? &dialog : dialog.findChild<QWidget*>(QLatin1String(form.name));
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->objectName(), QLatin1String(form.name));
    EXPECT_TRUE(widget->inherits(form.className));
    EXPECT_EQ(widget->parent() ? widget->parent()->objectName() : QString(), QLatin1String(form.parent));
    EXPECT_EQ(widget->sizePolicy().horizontalPolicy(), form.policies[0]);
    EXPECT_EQ(widget->sizePolicy().verticalPolicy(), form.policies[1]);
    EXPECT_EQ(widget->focusPolicy(), form.focus);
    const QLayout* const layout = widget->layout();
    EXPECT_EQ(layout ? layout->objectName() : QString(), QLatin1String(form.layout));
    if (layout != nullptr) {
      EXPECT_TRUE(layout->inherits(form.layoutClass));
      const QMargins margins = form.margin < 0 ? plainLayout->contentsMargins()
                                               : QMargins(form.margin, form.margin, form.margin, form.margin);
      EXPECT_EQ(layout->contentsMargins(), margins);
    }
    if (const QLayout* const around = widget->parentWidget() ? widget->parentWidget()->layout() : nullptr) {
      const int place = around->indexOf(widget);
      ASSERT_GE(place, 0);
      EXPECT_EQ(around->itemAt(place)->alignment(), form.placed);
    }
  }
}
