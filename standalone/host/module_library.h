#pragma once

#include <QLibrary>
#include <QString>

#include "module/exports.h"

/// The loaded library of a module. Releases the module and unloads the library at its end: nothing of the module may
/// run or be held by then. One thread.
class ModuleLibrary {
 public:
  /// An empty `file` is module_camera.dll beside the program. Throws HostError.
  explicit ModuleLibrary(const QString& file);
  ~ModuleLibrary();
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;

  ModuleInterface& module() const { return *moduleInterface; }
  const QString& file() const { return fileName; }
  /// As the module tells it: four numbers with points between.
  QString version() const;

 private:
  QFunctionPointer resolve(const char* name);

  QString fileName;
  QLibrary library;
  decltype(&ReleaseModuleInterfaceInstance) release = nullptr;
  decltype(&GetProductVersion) productVersion = nullptr;
  ModuleInterface* moduleInterface = nullptr;
};
