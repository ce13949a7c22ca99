#include "unit_tests/fakes/fake_platform.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QLibrary>
#include <QWidget>

#include "unit_tests/fakes/fault_rounds.h"
#include "utils/event_filters/high_contrast_event_filter.h"
#include "utils/platform/folder_path.h"
#include "utils/platform/monitor_dpi.h"
#include "utils/platform/narrator.h"

#ifdef _WIN32
#include <windows.h>
#include <knownfolders.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "unit_tests/fakes/substitute_import.h"
#endif

FakePlatform& fakePlatform() {
  static FakePlatform platform;
  return platform;
}

QColor fakeSystemColor(int number) {
  const int part = fakePlatform().shade + number;
  // Three different parts, so that exchanged ones show.
  return fakePlatform().theme.value(number, QColor(part, part + 40, part + 80));
}

namespace {

/// Whether the system does not answer.
bool fails(const char* call) {
  return faultPoint.fails(Fault::kSystem, call);
}

}  // namespace

#ifdef _WIN32

// The functions that the test program imports from Windows are pointers of these names. Qt's own DLLs keep the real
// ones.

namespace {

// Where the monitors begin; their handles point here. The last one is that of the first Qt screen.
POINT corners[] = {{5000, 0}, {0, 5000}, {0, 0}};

HRESULT WINAPI monitorDpi(HMONITOR monitor, int kind, UINT* x, UINT* y) {
  if (fakePlatform().monitorDpi == 0 || fails("dpi")) return E_FAIL;
  const bool effectiveOfFirst = monitor == reinterpret_cast<HMONITOR>(&corners[2]) && kind == 0;
  *x = effectiveOfFirst ? static_cast<UINT>(fakePlatform().monitorDpi) : 333;
  *y = 1;
  return S_OK;
}

HRESULT WINAPI setAwareness(int awareness) {
  if (fails("awareness")) return E_ACCESSDENIED;
  fakePlatform().dpiAwareness = awareness;
  return S_OK;
}

}  // namespace

SUBSTITUTE_IMPORT(BOOL, SystemParametersInfoW, (UINT action, UINT size, void* value, UINT flags)) {
  if (action == SPI_GETSCREENREADER) {
    if (fails("screen reader")) return FALSE;
    *static_cast<BOOL*>(value) = fakePlatform().narratorRuns ? TRUE : FALSE;
    return TRUE;
  }
  if (action == SPI_GETHIGHCONTRAST) {
    auto* const info = static_cast<HIGHCONTRASTW*>(value);
    if (size != 16 || info->cbSize != 16 || fails("high contrast")) return FALSE;
    // All other bits are noise.
    info->dwFlags = fakePlatform().highContrast ? ~DWORD{0} : ~DWORD{HCF_HIGHCONTRASTON};
    return TRUE;
  }
  return SYSTEM_FUNCTION("user32", SystemParametersInfoW)(action, size, value, flags);
}

// Not declared as an import: the function itself is replaced.
HRESULT WINAPI SHGetKnownFolderPath(REFKNOWNFOLDERID id, DWORD, HANDLE, wchar_t** path) {
  const std::wstring folder = QDir::toNativeSeparators(fakePlatform().programData).toStdWString();
  *path = nullptr;
  if (id != FOLDERID_ProgramData || folder.empty() || fails("folder")) return E_FAIL;
  const std::size_t size = (folder.size() + 1) * sizeof(wchar_t);
  *path = static_cast<wchar_t*>(CoTaskMemAlloc(size));
  std::memcpy(*path, folder.c_str(), size);
  return S_OK;
}

SUBSTITUTE_IMPORT(DWORD, GetSysColor, (int number)) {
  const QColor color = fakeSystemColor(number);
  return RGB(color.red(), color.green(), color.blue());
}

SUBSTITUTE_IMPORT(BOOL, EnumDisplayMonitors, (HDC, const RECT*, MONITORENUMPROC call, LPARAM argument)) {
  if (fails("dpi")) return FALSE;
  return std::ranges::all_of(
      corners, [&](POINT& corner) { return call(reinterpret_cast<HMONITOR>(&corner), nullptr, nullptr, argument); });
}

SUBSTITUTE_IMPORT(BOOL, GetMonitorInfoW, (HMONITOR monitor, MONITORINFO* info)) {
  const POINT corner = *reinterpret_cast<const POINT*>(monitor);
  info->rcMonitor = {corner.x, corner.y, corner.x + 1920, corner.y + 1080};
  return info->cbSize == 40 && !fails(monitor == reinterpret_cast<HMONITOR>(&corners[2]) ? "dpi" : "others");
}

SUBSTITUTE_IMPORT(FARPROC, GetProcAddress, (HMODULE library, const char* name)) {
  const std::string_view wanted(name);
  if (wanted.starts_with("GetDpi") && fails("dpi")) return nullptr;
  if (wanted.starts_with("SetProcessDpi") && fails("awareness")) return nullptr;
  if (wanted == "GetDpiForMonitor") return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&monitorDpi));
  if (wanted == "SetProcessDpiAwareness") return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&setAwareness));
  return reinterpret_cast<decltype(&GetProcAddress)>(QLibrary::resolve("kernel32", "GetProcAddress"))(library, name);
}

#else

bool vexa::utils::platform::IsNarratorRunning() {
  return fakePlatform().narratorRuns && !fails("screen reader");
}

bool vexa::utils::platform::QueryMonitorDpi(int) {
  if (fakePlatform().monitorDpi == 0 || fails("dpi")) return false;
  lastMonitorDpi = fakePlatform().monitorDpi;
  return true;
}

std::wstring vexa::utils::platform::GetFolderPath(int kind) {
  const QString& folder = fakePlatform().programData;
  return folder.isEmpty() || fails("folder") ? std::wstring()
                                             : (folder + QStringLiteral("/%1").arg(kind)).toStdWString();
}

namespace vexa::utils::event_filters {

std::uint32_t HighContrastEventFilter::messageNumber(const void* message) {
  return *static_cast<const std::uint32_t*>(message);
}

bool HighContrastEventFilter::IsHighContrastOn() const {
  return fakePlatform().highContrast && !fails("high contrast");
}

QList<QColor> HighContrastEventFilter::ReadSystemColors() const {
  QList<QColor> colors;
  for (int number = 0; number <= 30; ++number) {
    if (number != 25) colors.append(fakeSystemColor(number));
  }
  return colors;
}

}  // namespace vexa::utils::event_filters

#endif

bool sendNativeMessage(const QByteArray& eventType, std::uint32_t number) {
#ifdef _WIN32
  MSG message{};
  message.message = number;
#else
  std::uint32_t message = number;
#endif
  qintptr result = 0;
  return QAbstractEventDispatcher::instance()->filterNativeEvent(eventType, &message, &result);
}

void sendToWindows(std::uint32_t number) {
#ifdef _WIN32
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) SendMessageW(reinterpret_cast<HWND>(window->winId()), number, 0, 0);
  }
#else
  sendNativeMessage("windows_generic_MSG", number);
#endif
}
