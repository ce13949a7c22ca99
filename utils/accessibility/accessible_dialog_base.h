#pragma once

#include <QColor>
#include <QDialog>
#include <QList>
#include <QString>

class QAccessibleInterface;

namespace vexa::utils::event_filters {
class HighContrastEventFilter;
}

namespace vexa::utils::accessibility {

/// A dialog in the host's style that follows the Windows high-contrast setting while it lives. Only for the
/// user-interface thread.
class AccessibleDialogBase : public QDialog {
  Q_OBJECT

 public:
  explicit AccessibleDialogBase(QWidget* parent);
  ~AccessibleDialogBase() override;

  /// One object for all dialogs, made for the dialog on which it is first asked for and kept for the life of the
  /// process. The caller does not own it.
  virtual QAccessibleInterface* accessibleInterface();

 public slots:
  /// Applies the high-contrast style, or the normal one, 100 ms later: Windows is still changing its colours when it
  /// says that it does.
  void OnThemeChanged();

 private:
  /// The host's style, or high contrast in the colours that Windows has now.
  void applyStyle();

  /// Owned, and at the same time a child of this dialog.
  event_filters::HighContrastEventFilter* highContrastFilter;
  /// As last read, in the filter's order.
  QList<QColor> systemColors;
  /// What to go back to when high contrast is switched off.
  QString normalStyleSheet;
};

}  // namespace vexa::utils::accessibility
