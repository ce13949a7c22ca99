#include "utils/accessibility/accessible_dialog_base.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <memory>

#include "module/style_manager.h"
#include "utils/accessibility/high_contrast_style.h"
#include "utils/accessibility/recolored_icons.h"
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
  if (highContrastFilter->IsHighContrastOn()) applyStyle();
}

// The filter takes itself off the application when it goes.
AccessibleDialogBase::~AccessibleDialogBase() {
  delete highContrastFilter;
}

void AccessibleDialogBase::OnThemeChanged() {
  QTimer::singleShot(std::chrono::milliseconds(100), this, [this] { applyStyle(); });
}

QAccessibleInterface* AccessibleDialogBase::accessibleInterface() {
  static QAccessibleInterface* const shared = new QAccessibleWidget(this, QAccessible::Client, QString());
  return shared;
}

void AccessibleDialogBase::applyStyle() {
  // Needed as long as the style that names them.
  const std::unique_ptr<QObject> formerIcons(findChild<RecoloredIcons*>(QString(), Qt::FindDirectChildrenOnly));
  if (highContrastFilter->IsHighContrastOn()) {
    systemColors = highContrastFilter->ReadSystemColors();
    setStyleSheet(highContrastStyleSheet(normalStyleSheet, systemColors, *new RecoloredIcons(this)));
  } else {
    setStyleSheet(normalStyleSheet);
  }
}

}  // namespace vexa::utils::accessibility
