#pragma once

#include <QList>

class QWidget;

// The keyboard order that the dialogs keep for the users of a screen reader.

/// The descendants of `dialog` that take strong focus, in the order of the focus chain, beginning with the first such
/// descendant in child order. Empty when there is none.
[[nodiscard]] QList<QWidget*> strongFocusWidgets(const QWidget& dialog);

/// Whether stepping passes over entries that are not visible.
enum class HiddenWidgets { kKeep, kSkip };

/// Moves the focus up or down in `widgets`, which is not empty. From either end, and when none has the focus, it goes
/// once round; hidden entries are then skipped in the same direction, but not round again: when only hidden ones are
/// left, the focus stays. A key other than Qt::Key_Up and Qt::Key_Down moves nothing.
void stepFocus(const QList<QWidget*>& widgets, int key, HiddenWidgets hidden);
