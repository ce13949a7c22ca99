#pragma once

#include <QString>

#include <memory>

class ModuleInterface;

/// A module in this process, and the version that it tells.
struct LoadedModule {
  /// Null where the library gave none. The last share releases the module and unloads its library: nothing of the
  /// module may run or be held by then.
  std::shared_ptr<ModuleInterface> interface;
  /// Four numbers with points between; empty where the module tells none.
  QString version;
};

/// Loads the library of a module; an empty `file` is module_camera.dll beside the program. Throws HostError for a
/// library that cannot be used, and ModuleFault for what the module throws.
LoadedModule loadModule(const QString& file);
