#include "discovery/system_component.h"

std::string SystemComponent::getId() {
  return id;
}

ComponentDescription SystemComponent::getDescription() {
  return {name, detail, properties, attributes};
}

std::vector<SubComponentEntry> SystemComponent::getSubComponents() {
  return subComponents;
}
