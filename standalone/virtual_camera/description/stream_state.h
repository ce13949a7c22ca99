#pragma once

#include <QSize>

#include <optional>
#include <span>

#include "standalone/virtual_camera/description/camera_description.h"

/// What a camera's stream does at a moment, as its faults have it.
struct StreamState {
  enum class Kind { kFrames, kSilence, kEnded, kFailing };

  Kind kind = Kind::kFrames;
  FaultKind cause = FaultKind::kError;  ///< of `Failing`
  int ticks = 0;                        ///< how many stream ticks fell due up to now
  bool removed = false;                 ///< the removal is to be broadcast
  std::optional<QSize> size = {};       ///< set once the frame size changed

  bool operator==(const StreamState&) const = default;
};

/// The state `seconds` after the start. `faults` are in order of time. The first fault that ends the frames (end of
/// stream, removed, invalidated, error, failing first read) stays; what falls due after it has no effect.
[[nodiscard]] StreamState streamStateAt(std::span<const Fault> faults, double seconds);
