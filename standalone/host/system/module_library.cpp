#include "standalone/host/system/module_library.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include "module/exports.h"
#include "module/module_interface.h"
#include "module/product_version.h"
#include "standalone/host/host_error.h"
#include "standalone/host/system/library_search.h"

namespace {

constexpr const char* kDefaultName = "module_camera.dll";

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ModuleLibrary)
};

QString existingFile(const QString& file) {
  const QString path = file.isEmpty() ? QDir(QCoreApplication::applicationDirPath()).filePath(kDefaultName) : file;
  const QFileInfo info(path);
  if (!info.isFile()) throw HostError(Texts::tr("The module %1 is not there.").arg(QDir::toNativeSeparators(path)));
  return QDir::toNativeSeparators(info.absoluteFilePath());
}

/// Unloads at its end.
class ModuleLibrary {
 public:
  explicit ModuleLibrary(const QString& file) : library(file) {
    if (!library.load()) throw HostError(loadFailure(file));
  }
  ~ModuleLibrary() { library.unload(); }
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;

  template <class Function>
  Function* resolve(const char* name) {
    const QFunctionPointer function = library.resolve(name);
    if (!function) {
      throw HostError(
          Texts::tr("%1 is not a module: it does not export %2.").arg(library.fileName(), QLatin1String(name)));
    }
    return reinterpret_cast<Function*>(function);
  }

 private:
  QLibrary library;
};

// A module that fails as it goes has nothing to say about its tests any more.
void releaseQuietly(decltype(&ReleaseModuleInterfaceInstance) release) {
  try {
    release();
  } catch (...) {
    qWarning("The module failed while it was released.");
  }
}

QString textOf(ProductVersion* version) {
  if (!version) return {};
  return QStringLiteral("%1.%2.%3.%4")
      .arg(version->major())
      .arg(version->minor())
      .arg(version->patch())
      .arg(version->build());
}

}  // namespace

LoadedModule loadModule(const QString& file) {
  const auto library = std::make_shared<ModuleLibrary>(existingFile(file));
  const auto get = library->resolve<decltype(GetModuleInterfaceInstance)>("GetModuleInterfaceInstance");
  const auto release = library->resolve<decltype(ReleaseModuleInterfaceInstance)>("ReleaseModuleInterfaceInstance");
  const auto version = library->resolve<decltype(GetProductVersion)>("GetProductVersion");
  try {
    LoadedModule loaded;
    loaded.version = textOf(version());
    // The share of the library is in what releases the module.
    loaded.interface = {get(), [library, release](ModuleInterface*) { releaseQuietly(release); }};
    return loaded;
  } catch (const std::exception& error) {
    throw ModuleFault(Texts::tr("The module could not be made: %1").arg(QString::fromUtf8(error.what())));
  } catch (...) {
    throw ModuleFault(Texts::tr("The module could not be made, and did not say why."));
  }
}
