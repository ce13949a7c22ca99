#include "ui/dialog_focus.h"

#include <QWidget>

#include <algorithm>

namespace {

bool takesStrongFocus(const QWidget* widget) {
  return widget->focusPolicy() == Qt::StrongFocus;
}

}  // namespace

QList<QWidget*> strongFocusWidgets(const QWidget& dialog) {
  const auto descendants = dialog.findChildren<QWidget*>();
  const auto first = std::find_if(descendants.begin(), descendants.end(), takesStrongFocus);
  if (first == descendants.end()) return {};

  QWidget* const start = *first;
  QList<QWidget*> widgets{start};
  for (QWidget* next = start->nextInFocusChain(); next->objectName() != start->objectName();
       next = next->nextInFocusChain()) {
    if (takesStrongFocus(next)) widgets.append(next);
  }
  return widgets;
}

void stepFocus(const QList<QWidget*>& widgets, int key, HiddenWidgets hidden) {
  if (key != Qt::Key_Up && key != Qt::Key_Down) return;

  const auto last = widgets.size() - 1;
  const auto focused = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* w) { return w->hasFocus(); });
  // Past the last entry when none has the focus.
  auto index = focused - widgets.begin();
  const int step = key == Qt::Key_Up ? -1 : 1;
  if (step < 0) {
    index = index == 0 || index > last ? last : index - 1;
  } else {
    index = index >= last ? 0 : index + 1;
  }
  if (hidden == HiddenWidgets::kSkip) {
    while (index >= 0 && index <= last && !widgets[index]->isVisible()) index += step;
    if (index < 0 || index > last) return;
  }
  widgets[index]->setFocus(Qt::OtherFocusReason);
}
