#pragma once

namespace vexa::utils::platform {

/// Whether a screen reader is at work: the system's screen reader flag is set, or Narrator's mutex exists. The answer
/// is not kept: the user may start or stop a reader while a dialog is open.
[[nodiscard]] bool IsNarratorRunning();

}  // namespace vexa::utils::platform
