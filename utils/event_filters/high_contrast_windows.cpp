// What the high-contrast filter asks of Windows.

#include <windows.h>

#include "utils/event_filters/high_contrast_event_filter.h"

namespace vexa::utils::event_filters {

std::uint32_t HighContrastEventFilter::messageNumber(const void* message) {
  return static_cast<const MSG*>(message)->message;
}

bool HighContrastEventFilter::IsHighContrastOn() const {
  HIGHCONTRASTW info{};
  static_assert(sizeof(info) == 16);
  info.cbSize = sizeof(info);
  SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(info), &info, 0);
  return (info.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

QList<QColor> HighContrastEventFilter::ReadSystemColors() const {
  constexpr int kLast = 30;
  constexpr int kUndefined = 25;
  QList<QColor> colors;
  colors.reserve(kLast);
  for (int index = 0; index <= kLast; ++index) {
    if (index == kUndefined) continue;
    const COLORREF color = GetSysColor(index);
    colors.append(QColor(GetRValue(color), GetGValue(color), GetBValue(color), 255));
  }
  return colors;
}

}  // namespace vexa::utils::event_filters
