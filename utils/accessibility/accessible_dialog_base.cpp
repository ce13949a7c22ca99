#include "utils/accessibility/accessible_dialog_base.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QTimer>

#include <chrono>

#include "module/style_manager.h"
#include "utils/accessibility/high_contrast_style.h"
#include "utils/event_filters/high_contrast_event_filter.h"

namespace vexa::utils::accessibility {

using event_filters::HighContrastEventFilter;

AccessibleDialogBase::AccessibleDialogBase(QWidget* parent)
    : QDialog(parent),
      highContrastFilter(new HighContrastEventFilter(this)),
      systemColors(highContrastFilter->ReadSystemColors()) {
  QCoreApplication::instance()->installNativeEventFilter(highContrastFilter);
  connect(highContrastFilter, &HighContrastEventFilter::ThemeChanged, this, &AccessibleDialogBase::OnThemeChanged);
  setAttribute(Qt::WA_TranslucentBackground);
  setStyleSheet(style_manager::StyleManager::instance().Stylesheet());
  normalStyleSheet = styleSheet();
  if (highContrastFilter->IsHighContrastOn()) applyHighContrastStyle();
}

// The filter takes itself off the application when it goes.
AccessibleDialogBase::~AccessibleDialogBase() {
  delete highContrastFilter;
}

void AccessibleDialogBase::OnThemeChanged() {
  QTimer::singleShot(std::chrono::milliseconds(100), this, [this] {
    if (highContrastFilter->IsHighContrastOn()) {
      applyHighContrastStyle();
    } else {
      setStyleSheet(normalStyleSheet);
    }
  });
}

QAccessibleInterface* AccessibleDialogBase::accessibleInterface() {
  static QAccessibleInterface* const shared = new QAccessibleWidget(this, QAccessible::Client, QString());
  return shared;
}

void AccessibleDialogBase::applyHighContrastStyle() {
  systemColors = highContrastFilter->ReadSystemColors();
  setStyleSheet(highContrastStyleSheet(systemColors));
}

}  // namespace vexa::utils::accessibility
