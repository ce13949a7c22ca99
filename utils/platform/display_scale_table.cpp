#include "utils/platform/display_scale_table.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "utils/platform/monitor_dpi.h"

namespace vexa::utils::platform {
namespace {

constexpr std::array<std::int32_t, 9> kSteps = {96, 120, 144, 168, 192, 216, 240, 288, 336};
constexpr std::int32_t kHighestScaleDpi = 192;

}  // namespace

std::int32_t quantiseDpi(std::int32_t dpi) {
  const auto next = std::upper_bound(kSteps.begin(), kSteps.end(), dpi);
  return next == kSteps.begin() ? kSteps.front() : *(next - 1);
}

DisplayScaleTable::DisplayScaleTable() {
  for (int i = 0; i < QGuiApplication::screens().size(); ++i) {
    scaleDpi.push_back(0);
    fullDpi.push_back(0);
    // A failing query may still find a value waiting, which counts.
    static_cast<void>(QueryMonitorDpi(i));
    std::int32_t dpi = std::exchange(lastMonitorDpi, 0);
    if (dpi == 0) dpi = static_cast<std::int32_t>(QGuiApplication::screens().at(i)->logicalDotsPerInchX());
    fullDpi.back() = quantiseDpi(dpi);
    scaleDpi.back() = std::min(fullDpi.back(), kHighestScaleDpi);
  }
}

double DisplayScaleTable::ScaleFactor(int screenIndex) const {
  const auto index = static_cast<std::size_t>(screenIndex);
  return index < scaleDpi.size() ? scaleDpi[index] / 96.0 : 1.0;
}

}  // namespace vexa::utils::platform
