#include <windows.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstring>
#include <stdexcept>
#include <string>

#include "benchmarks/comparison.h"
#include "benchmarks/durations.h"
#include "benchmarks/rows.h"
#include "module/exports.h"

namespace {

/// Without an entry point nothing of a DLL's own runs as it is loaded.
void removeEntryPoint(QByteArray& image) {
  IMAGE_DOS_HEADER dos;
  std::memcpy(&dos, image.constData(), sizeof(dos));
  constexpr DWORD kNone = 0;
  const auto place = static_cast<std::size_t>(dos.e_lfanew) + offsetof(IMAGE_NT_HEADERS, OptionalHeader) +
                     offsetof(IMAGE_OPTIONAL_HEADER, AddressOfEntryPoint);
  std::memcpy(image.data() + place, &kNone, sizeof(kNone));
}

std::wstring write(const QString& path, const QByteArray& contents) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size()) {
    throw std::runtime_error("the copy of the module cannot be written");
  }
  return QDir::toNativeSeparators(path).toStdWString();
}

HMODULE load(const std::wstring& path) {
  const HMODULE library = LoadLibraryW(path.c_str());
  if (!library) throw std::runtime_error("the module cannot be loaded: error " + std::to_string(GetLastError()));
  return library;
}

template <class Function>
Function* find(HMODULE library, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

void useModule(const std::wstring& path) {
  const HMODULE library = load(path);
  if (!find<decltype(GetModuleInterfaceInstance)>(library, "GetModuleInterfaceInstance")()) {
    throw std::runtime_error("the module gives no interface");
  }
  find<decltype(ReleaseModuleInterfaceInstance)>(library, "ReleaseModuleInterfaceInstance")();
  FreeLibrary(library);
}

}  // namespace

void compareModule(Comparison& comparison) {
  const Row row{"load, get interface, release, unload", "the same DLL without an entry point, loaded and unloaded",
                1.20};
  if (!comparison.wants(row.work)) return;

  QFile file(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("module_camera.dll")));
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("module_camera.dll is not beside the program");
  QByteArray image = file.readAll();
  const QTemporaryDir folder;
  const std::wstring whole = write(folder.filePath(QStringLiteral("whole.dll")), image);
  removeEntryPoint(image);
  const std::wstring bare = write(folder.filePath(QStringLiteral("bare.dll")), image);
  comparison.compare(
      row, [&] { return millisecondsOf([&] { useModule(whole); }); },
      [&] { return millisecondsOf([&] { FreeLibrary(load(bare)); }); });
}
