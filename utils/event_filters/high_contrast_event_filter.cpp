#include "utils/event_filters/high_contrast_event_filter.h"

#include <QByteArrayView>

namespace vexa::utils::event_filters {
namespace {

constexpr std::uint32_t kThemeChangedMessage = 794;  // WM_THEMECHANGED

QList<HighContrastEventFilter*>& filters() {
  static QList<HighContrastEventFilter*> all;
  return all;
}

}  // namespace

HighContrastEventFilter::HighContrastEventFilter(QObject* parent) : QObject(parent) {
  filters().append(this);
}

HighContrastEventFilter::~HighContrastEventFilter() {
  filters().removeOne(this);
}

bool HighContrastEventFilter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  if (eventType != QByteArrayView("windows_generic_MSG") || messageNumber(message) != kThemeChangedMessage) {
    return false;
  }
  // The message goes no further than to the first filter, which is that of the newest dialog.
  const auto all = filters();
  for (HighContrastEventFilter* const filter : all) emit filter->ThemeChanged();
  return true;
}

}  // namespace vexa::utils::event_filters
