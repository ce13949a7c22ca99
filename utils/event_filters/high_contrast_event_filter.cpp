#include "utils/event_filters/high_contrast_event_filter.h"

#include <QByteArrayView>

namespace vexa::utils::event_filters {
namespace {

constexpr std::uint32_t kThemeChangedMessage = 794;  // WM_THEMECHANGED

}  // namespace

HighContrastEventFilter::HighContrastEventFilter(QObject* parent) : QObject(parent) {}

bool HighContrastEventFilter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != QByteArrayView("windows_generic_MSG") || messageNumber(message) != kThemeChangedMessage) {
    return false;
  }
  emit ThemeChanged();
  return true;
}

}  // namespace vexa::utils::event_filters
