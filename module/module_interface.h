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
                  SystemComponentManager* manager, void* reservedPointer);
  virtual ~ModuleInterface();
  ModuleInterface(const ModuleInterface&) = delete;
  ModuleInterface& operator=(const ModuleInterface&) = delete;

  /// Null when `index` is out of range.
  virtual Diagnostic* diagnosticAt(std::uint32_t index);
  virtual std::size_t diagnosticCount();
  virtual Resource* getResource();
  virtual SystemComponentManager* getComponentManager();
  /// Null when `index` is out of range; this module has no extras.
  virtual void* extraAt(std::uint32_t index);
  virtual std::size_t extraCount();
  virtual void* getReserved();
  virtual bool isInteractive();

 private:
  std::vector<Diagnostic*> diagnostics;
  Resource* resource;
  SystemComponentManager* componentManager;
  void* reserved;
  std::vector<void*> extras;
};
