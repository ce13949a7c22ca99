#pragma once

#include <QBoxLayout>
#include <QVariant>
#include <QWidget>

/// A form as an indented list of its widgets: name (with '~' for `prefix`), class unless it is a plain widget, both
/// size policies unless they are the class's usual ones, "strong" for what takes strong focus, how the parent's layout
/// places it, and the layout in it with its margin unless that is the style's.
inline QString describeForm(const QWidget& widget, const QString& prefix, int depth = 0) {
  QStringList words{widget.objectName().replace(prefix, "~")};
  const QString className = widget.metaObject()->className();
  if (className != "QWidget") words += className;

  const QSizePolicy policy = widget.sizePolicy();
  const QString policies = QVariant::fromValue(policy.horizontalPolicy()).toString() + '/' +
                           QVariant::fromValue(policy.verticalPolicy()).toString();
  if (policies != (className == "QPushButton" ? "Minimum/Fixed" : "Preferred/Preferred")) words += policies;
  if (widget.focusPolicy() == Qt::StrongFocus) words += "strong";
  if (const QLayout* const around = depth > 0 ? widget.parentWidget()->layout() : nullptr) {
    const QLayoutItem* const item = around->itemAt(around->indexOf(&widget));
    if (!item) {
      words += "not placed";
    } else if (item->alignment()) {
      words += item->alignment() == Qt::AlignCenter    ? "centred"
               : item->alignment() == Qt::AlignHCenter ? "hcentred"
                                                       : "?";
    }
  }
  if (const QLayout* const layout = widget.layout()) {
    words += QStringList{layout->metaObject()->className(), layout->objectName().replace(prefix, "~")};
    QWidget window;
    const QVBoxLayout plain(new QWidget(&window));
    const QMargins margins = layout->contentsMargins();
    if (margins != plain.contentsMargins()) {
      words += margins == QMargins(margins.left(), margins.left(), margins.left(), margins.left())
                   ? QString::number(margins.left())
                   : "?";
    }
  }

  QString text = QString(2 * depth, ' ') + words.join(' ') + '\n';
  for (const QWidget* part : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    text += describeForm(*part, prefix, depth + 1);
  }
  return text;
}
