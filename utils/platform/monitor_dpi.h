#pragma once

#include <cstdint>

namespace vexa::utils::platform {

/// The result of the last monitor query that nobody has taken yet, in dots per inch; 0 when none waits. Only for the
/// user-interface thread.
inline std::int32_t lastMonitorDpi = 0;

/// Asks the system for the effective dots per inch of the monitor on which the Qt screen lies, and stores it in
/// `lastMonitorDpi`. The monitor is found by its position, since Windows and Qt may count the screens differently. On
/// failure `lastMonitorDpi` stays as it is and the answer is false.
[[nodiscard]] bool QueryMonitorDpi(int screenIndex);

}  // namespace vexa::utils::platform
