#pragma once

#include <QSize>

#include <optional>
#include <span>

#include "standalone/virtual_camera/description/camera_description.h"

/// What a camera's stream does at a moment, as its faults have it.
struct StreamState {
  enum class Kind { kFrames, kSilence, kEnded, kFailing };
  enum class View { kScene, kBlack, kCovered };

  Kind kind = Kind::kFrames;
  FaultKind cause = FaultKind::kError;  ///< of `Failing`
  int ticks = 0;                        ///< how many stream ticks fell due up to now
  int unlockables = 0;                  ///< how many buffers that cannot be locked at once fell due up to now
  int othersRemoved = 0;                ///< how many removals of other devices fell due up to now
  std::optional<QSize> size = {};       ///< set once the frame size changed
  View view = View::kScene;             ///< what the frame shows
  std::optional<double> frozenAt = {};  ///< the time, in seconds since the start, at which the picture stands still
  double share = 1;                     ///< how much of the frame its buffer holds
  double lateness = 0;                  ///< seconds by which the frame comes late

  bool operator==(const StreamState&) const = default;
};

/// The state at a frame, `seconds` after the start. `faults` are in order of time. The first fault that ends the frames
/// (end of stream, removed, invalidated, error, failing first read) stays; what falls due after it has no effect. What
/// is left to chance depends on the fault's seed and the frame's number alone.
[[nodiscard]] StreamState streamStateAt(std::span<const Fault> faults, quint64 frameNumber, double seconds);
