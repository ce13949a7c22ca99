#include "standalone/virtual_camera/description/stream_state.h"

#include <random>

namespace {

// 0 to 1, the same each time for a fault's kind and seed and a frame.
double chanceOf(const Fault& fault, quint64 frameNumber) {
  std::seed_seq seed{static_cast<quint64>(fault.kind), static_cast<quint64>(fault.seed), frameNumber};
  std::mt19937_64 engine(seed);
  return static_cast<double>(engine() >> 11) / static_cast<double>(quint64{1} << 53);
}

// What ends the frames for good: true once it did.
bool endsFrames(const Fault& fault, StreamState& state) {
  switch (fault.kind) {
    case FaultKind::kEndOfStream:
      state.kind = StreamState::Kind::kEnded;
      return true;
    case FaultKind::kRemoved:
      state.kind = StreamState::Kind::kSilence;
      return true;
    case FaultKind::kFirstReadFails:
    case FaultKind::kInvalidated:
    case FaultKind::kError:
      state.kind = StreamState::Kind::kFailing;
      state.cause = fault.kind;
      return true;
    default:
      return false;
  }
}

// What happens at a moment and stays done.
void count(const Fault& fault, StreamState& state) {
  switch (fault.kind) {
    case FaultKind::kTick:
      ++state.ticks;
      break;
    case FaultKind::kUnlockable:
      ++state.unlockables;
      break;
    case FaultKind::kOtherRemoved:
      ++state.othersRemoved;
      break;
    case FaultKind::kSizeChange:
      state.size = fault.size;
      break;
    default:
      break;
  }
}

// What lasts for its time.
void apply(const Fault& fault, quint64 frameNumber, StreamState& state) {
  switch (fault.kind) {
    case FaultKind::kStall:
      state.kind = StreamState::Kind::kSilence;
      break;
    case FaultKind::kDropped:
      if (chanceOf(fault, frameNumber) < fault.share) state.kind = StreamState::Kind::kSilence;
      break;
    case FaultKind::kJitter:
      state.lateness = chanceOf(fault, frameNumber) * fault.lateness;
      break;
    case FaultKind::kBlack:
      state.view = StreamState::View::kBlack;
      break;
    case FaultKind::kCovered:
      state.view = StreamState::View::kCovered;
      break;
    case FaultKind::kFrozen:
      state.frozenAt = fault.at;
      break;
    case FaultKind::kShort:
      state.share = fault.share;
      break;
    default:
      break;
  }
}

}  // namespace

StreamState streamStateAt(std::span<const Fault> faults, quint64 frameNumber, double seconds) {
  StreamState state;
  for (const Fault& fault : faults) {
    if (fault.at > seconds) break;
    if (endsFrames(fault, state)) break;
    count(fault, state);
    if (seconds < fault.at + fault.duration) apply(fault, frameNumber, state);
  }
  return state;
}
