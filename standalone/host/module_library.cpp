#include "standalone/host/module_library.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "module/module_interface.h"
#include "module/product_version.h"
#include "standalone/host/host_error.h"

namespace {

constexpr const char* kDefaultName = "module_camera.dll";

QString existingFile(const QString& file) {
  const QString path = file.isEmpty() ? QDir(QCoreApplication::applicationDirPath()).filePath(kDefaultName) : file;
  const QFileInfo info(path);
  if (!info.isFile()) {
    throw HostError(QStringLiteral("The module %1 is not there.").arg(QDir::toNativeSeparators(path)));
  }
  return QDir::toNativeSeparators(info.absoluteFilePath());
}

}  // namespace

ModuleLibrary::ModuleLibrary(const QString& file) : fileName(existingFile(file)), library(fileName) {
  if (!library.load()) {
    throw HostError(QStringLiteral("The module could not be loaded: %1").arg(library.errorString()));
  }
  const auto get = reinterpret_cast<decltype(&GetModuleInterfaceInstance)>(resolve("GetModuleInterfaceInstance"));
  release = reinterpret_cast<decltype(release)>(resolve("ReleaseModuleInterfaceInstance"));
  productVersion = reinterpret_cast<decltype(productVersion)>(resolve("GetProductVersion"));
  moduleInterface = get();
}

ModuleLibrary::~ModuleLibrary() {
  release();
  library.unload();
}

QString ModuleLibrary::version() const {
  ProductVersion* version = productVersion();
  return QStringLiteral("%1.%2.%3.%4")
      .arg(version->major())
      .arg(version->minor())
      .arg(version->patch())
      .arg(version->build());
}

QFunctionPointer ModuleLibrary::resolve(const char* name) {
  const QFunctionPointer function = library.resolve(name);
  if (!function) {
    library.unload();
    throw HostError(QStringLiteral("%1 is not a module: it does not export %2.").arg(fileName, QLatin1String(name)));
  }
  return function;
}
