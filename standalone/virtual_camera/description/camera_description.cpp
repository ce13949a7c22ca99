#include "standalone/virtual_camera/description/camera_description.h"

#include <algorithm>

const Fault* CameraDescription::fault(FaultKind kind) const {
  const auto found = std::ranges::find(faults, kind, &Fault::kind);
  return found == faults.end() ? nullptr : &*found;
}
