#include "standalone/virtual_camera/description/stream_state.h"

StreamState streamStateAt(std::span<const Fault> faults, double seconds) {
  StreamState state;
  for (const Fault& fault : faults) {
    if (fault.at > seconds) break;
    switch (fault.kind) {
      case FaultKind::NoOpen:
      case FaultKind::NotRgb32:
        break;
      case FaultKind::Stall:
        if (seconds < fault.at + fault.duration) state.kind = StreamState::Kind::Silence;
        break;
      case FaultKind::Tick:
        ++state.ticks;
        break;
      case FaultKind::SizeChange:
        state.size = fault.size;
        break;
      case FaultKind::EndOfStream:
        state.kind = StreamState::Kind::Ended;
        return state;
      case FaultKind::Removed:
        state.kind = StreamState::Kind::Silence;
        state.removed = true;
        return state;
      case FaultKind::FirstReadFails:
      case FaultKind::Invalidated:
      case FaultKind::Error:
        state.kind = StreamState::Kind::Failing;
        state.cause = fault.kind;
        return state;
    }
  }
  return state;
}
