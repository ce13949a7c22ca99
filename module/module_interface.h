#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class Diagnostic;
class Resource;
class SystemComponentManager;

/// A module as the host sees it. It points to its parts and owns none of them: the release export deletes them.
class ModuleInterface {
 public:
  ModuleInterface(const std::vector<Diagnostic*>& diagnosticList, Resource* moduleResource,
                  SystemComponentManager* manager, void* reservedPointer)
      : diagnostics(diagnosticList), resource(moduleResource), componentManager(manager), reserved(reservedPointer) {}
  virtual ~ModuleInterface() = default;
  ModuleInterface(const ModuleInterface&) = delete;
  ModuleInterface& operator=(const ModuleInterface&) = delete;

  /// Null when `index` is out of range.
  virtual Diagnostic* diagnosticAt(std::uint32_t index) {
    return index < diagnostics.size() ? diagnostics[index] : nullptr;
  }
  virtual std::size_t diagnosticCount() { return diagnostics.size(); }
  virtual Resource* getResource() { return resource; }
  virtual SystemComponentManager* getComponentManager() { return componentManager; }
  /// Null when `index` is out of range; this module has no extras.
  virtual void* extraAt(std::uint32_t index) { return index < extras.size() ? extras[index] : nullptr; }
  virtual std::size_t extraCount() { return extras.size(); }
  virtual void* getReserved() { return reserved; }
  virtual bool isInteractive() { return false; }

 private:
  std::vector<Diagnostic*> diagnostics;
  Resource* resource;
  SystemComponentManager* componentManager;
  void* reserved;
  std::vector<void*> extras;
};
