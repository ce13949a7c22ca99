#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "module/item_id.h"

class SystemComponent;

/// The host's handle on the components that a module finds. The host calls the virtual operations by their place: their
/// order never changes. Calls must not overlap, and nothing may use a component while they are rescanned.
class SystemComponentManager {
 public:
  explicit SystemComponentManager(const ItemId& managerVersion) : version(managerVersion) {}
  /// Deliberate: leaves the components alive. The host may hold one until the process ends; their memory is the price.
  virtual ~SystemComponentManager() = default;
  SystemComponentManager(const SystemComponentManager&) = delete;
  SystemComponentManager& operator=(const SystemComponentManager&) = delete;

  virtual ItemId getVersion();
  virtual std::size_t getComponentCount();
  /// Null when `index` is out of range. The manager keeps the component, until the next rescan.
  virtual SystemComponent* getComponent(std::uint32_t index);

 protected:
  std::vector<SystemComponent*> components;
  ItemId version;
};
