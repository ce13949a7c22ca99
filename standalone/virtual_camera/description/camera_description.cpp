#include "standalone/virtual_camera/description/camera_description.h"

#include <algorithm>

bool CameraDescription::hasFault(FaultKind kind) const {
  return std::ranges::any_of(faults, [kind](const Fault& fault) { return fault.kind == kind; });
}
