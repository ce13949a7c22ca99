#pragma once

#include <cstdint>

#include "discovery/system_component_manager.h"

/// The host's handle on the cameras. It owns the components between two rescans.
class CameraComponentManager : public SystemComponentManager {
 public:
  using SystemComponentManager::SystemComponentManager;

  /// Whether there is anything to find at the moment; leaves the components as they are.
  virtual bool hasComponents();
  /// Null beyond the end, but std::out_of_range exactly at it: the difference to `getComponent` is required.
  virtual SystemComponent* componentAt(std::uint32_t index);
  /// Rescans. Components handed out before are gone, unless the scan failed: then the old ones stay.
  virtual void refresh();
};
