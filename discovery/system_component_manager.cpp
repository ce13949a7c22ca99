#include "discovery/system_component_manager.h"

ItemId SystemComponentManager::getVersion() {
  return version;
}

std::size_t SystemComponentManager::getComponentCount() {
  return components.size();
}

SystemComponent* SystemComponentManager::getComponent(std::uint32_t index) {
  return index < components.size() ? components[index] : nullptr;
}
