#include "standalone/host/system/library_search.h"

#include <windows.h>

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <type_traits>

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(LibrarySearch)
};

struct LibraryFreer {
  void operator()(HMODULE library) const { FreeLibrary(library); }
};
using ScopedLibrary = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

struct Fault {
  QString library;
  DWORD error;
};

ScopedLibrary load(const QString& library, DWORD flags) {
  const std::wstring name = library.toStdWString();
  return ScopedLibrary(LoadLibraryExW(name.c_str(), nullptr, flags));
}

// The names of the libraries that a library needs; none when it is no 64-bit library.
QStringList neededLibraries(const QString& library) {
  const ScopedLibrary image = load(library, LOAD_LIBRARY_AS_IMAGE_RESOURCE);
  if (!image) return {};
  // The low bits of such a handle are marks, not address.
  const auto* base = reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(image.get()) & ~std::uintptr_t{3});
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& table = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (header->OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR64_MAGIC || !table.Size) return {};
  QStringList names;
  const auto* entry = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
  for (; entry->Name; ++entry) names.append(QString::fromLatin1(base + entry->Name));
  return names;
}

// The deepest library at fault: one that is not there, or that fails although all that it needs can be loaded.
Fault findFault(const QString& library, QStringList& visited) {
  visited.append(library);
  if (load(library, 0)) return {{}, ERROR_SUCCESS};
  const DWORD error = GetLastError();
  for (const QString& needed : neededLibraries(library)) {
    if (visited.contains(needed)) continue;
    if (const Fault fault = findFault(needed, visited); fault.error != ERROR_SUCCESS) return fault;
  }
  return {library, error};
}

bool isMediaFoundation(const QString& library) {
  return QStringList{"mf.dll", "mfplat.dll", "mfreadwrite.dll"}.contains(library, Qt::CaseInsensitive);
}

}  // namespace

void prepareProcess() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  SetConsoleOutputCP(CP_UTF8);
}

QString loadFailure(const QString& file) {
  QStringList visited;
  const Fault fault = findFault(file, visited);
  const bool isMissing = fault.error == ERROR_MOD_NOT_FOUND;
  if (isMissing && isMediaFoundation(fault.library)) {
    return Texts::tr(
               "Windows lacks Media Foundation (%1 is missing), without which no camera can be found. The N "
               "editions of Windows get it with the Media Feature Pack: Settings, Apps, Optional features.")
        .arg(fault.library);
  }
  const QString reason = isMissing ? Texts::tr("it is missing") : qt_error_string(static_cast<int>(fault.error));
  const QString name = QDir::toNativeSeparators(file);
  return fault.library == file
             ? Texts::tr("%1 could not be loaded: %2.").arg(name, reason)
             : Texts::tr("%1 could not be loaded because of %2, which it needs: %3.").arg(name, fault.library, reason);
}
