#include "module/module_interface.h"

ModuleInterface::ModuleInterface(const std::vector<Diagnostic*>& diagnosticList, Resource* moduleResource,
                                 SystemComponentManager* manager, void* reservedPointer)
    : diagnostics(diagnosticList), resource(moduleResource), componentManager(manager), reserved(reservedPointer) {}

ModuleInterface::~ModuleInterface() = default;

Diagnostic* ModuleInterface::diagnosticAt(std::uint32_t index) {
  return index < diagnostics.size() ? diagnostics[index] : nullptr;
}

std::size_t ModuleInterface::diagnosticCount() {
  return diagnostics.size();
}

Resource* ModuleInterface::getResource() {
  return resource;
}

SystemComponentManager* ModuleInterface::getComponentManager() {
  return componentManager;
}

void* ModuleInterface::extraAt(std::uint32_t index) {
  return index < extras.size() ? extras[index] : nullptr;
}

std::size_t ModuleInterface::extraCount() {
  return extras.size();
}

void* ModuleInterface::getReserved() {
  return reserved;
}

bool ModuleInterface::isInteractive() {
  return false;
}
