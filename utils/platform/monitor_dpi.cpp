#include "utils/platform/monitor_dpi.h"

#include <windows.h>

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <memory>
#include <new>
#include <vector>

#include "module/host_services.h"

namespace vexa::utils::platform {
namespace {

struct UnloadByHost {
  void operator()(void* library) const { get_module()->unload(library); }
};

template <class Function>
Function find(void* library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name)));
}

// shcore.dll is looked up at run time, so its enumerations are passed as the integers that they are.
using SetProcessDpiAwarenessFunction = HRESULT(WINAPI*)(int awareness);
using GetDpiForMonitorFunction = HRESULT(WINAPI*)(HMONITOR monitor, int kind, UINT* x, UINT* y);
constexpr int kPerMonitorAware = 2;
constexpr int kEffectiveDpi = 0;

BOOL CALLBACK appendMonitor(HMONITOR monitor, HDC, RECT*, LPARAM list) try {
  reinterpret_cast<std::vector<HMONITOR>*>(list)->push_back(monitor);
  return TRUE;
} catch (const std::bad_alloc&) {
  return FALSE;
}

std::vector<HMONITOR> allMonitors() {
  std::vector<HMONITOR> monitors;
  EnumDisplayMonitors(nullptr, nullptr, &appendMonitor, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

bool startsAt(HMONITOR monitor, QPoint position) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  return GetMonitorInfoW(monitor, &info) != 0 && info.rcMonitor.left == position.x() &&
         info.rcMonitor.top == position.y();
}

HRESULT queryDpi(HMONITOR monitor, GetDpiForMonitorFunction getDpiForMonitor) {
  if (!monitor || !getDpiForMonitor) return E_INVALIDARG;
  UINT x = 0;
  UINT y = 0;
  const HRESULT status = getDpiForMonitor(monitor, kEffectiveDpi, &x, &y);
  if (SUCCEEDED(status)) lastMonitorDpi = static_cast<std::int32_t>(x);
  return status;
}

}  // namespace

bool QueryMonitorDpi(int screenIndex) {
  const std::unique_ptr<void, UnloadByHost> shcore(get_module()->load("shcore.dll", 1));
  if (!shcore) return false;

  if (const auto setAwareness = find<SetProcessDpiAwarenessFunction>(shcore.get(), "SetProcessDpiAwareness")) {
    // Refused when the host or its manifest has chosen already, which is as well.
    setAwareness(kPerMonitorAware);
  }
  const auto getDpiForMonitor = find<GetDpiForMonitorFunction>(shcore.get(), "GetDpiForMonitor");

  const QList<QScreen*> screens = QGuiApplication::screens();
  if (screenIndex < 0 || screenIndex >= screens.size()) return false;
  const QPoint position = screens[screenIndex]->geometry().topLeft();
  for (const HMONITOR monitor : allMonitors()) {
    if (startsAt(monitor, position)) return queryDpi(monitor, getDpiForMonitor) == S_OK;
  }
  return false;
}

}  // namespace vexa::utils::platform
