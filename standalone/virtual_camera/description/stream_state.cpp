#include "standalone/virtual_camera/description/stream_state.h"

StreamState streamStateAt(std::span<const Fault> faults, double seconds) {
  StreamState state;
  for (const Fault& fault : faults) {
    if (fault.at > seconds) break;
    switch (fault.kind) {
      case FaultKind::kNoOpen:
      case FaultKind::kNotRgb32:
        break;
      case FaultKind::kStall:
        if (seconds < fault.at + fault.duration) state.kind = StreamState::Kind::kSilence;
        break;
      case FaultKind::kTick:
        ++state.ticks;
        break;
      case FaultKind::kSizeChange:
        state.size = fault.size;
        break;
      case FaultKind::kEndOfStream:
        state.kind = StreamState::Kind::kEnded;
        return state;
      case FaultKind::kRemoved:
        state.kind = StreamState::Kind::kSilence;
        state.removed = true;
        return state;
      case FaultKind::kFirstReadFails:
      case FaultKind::kInvalidated:
      case FaultKind::kError:
        state.kind = StreamState::Kind::kFailing;
        state.cause = fault.kind;
        return state;
    }
  }
  return state;
}
