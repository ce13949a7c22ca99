#include "capture/removal_watcher.h"

#include <windows.h>
#include <dbt.h>

#include "utils/platform/narrow_text.h"

namespace {

constexpr wchar_t kClassName[] = L"CameraCLASS";
constexpr wchar_t kWindowTitle[] = L"CameraWindow";

bool isRemoval(WPARAM event) {
  return event == DBT_DEVICEREMOVEPENDING || event == DBT_DEVICEREMOVECOMPLETE;
}

// Some device broadcasts, DBT_DEVNODES_CHANGED for one, come without a payload.
const DEV_BROADCAST_DEVICEINTERFACE_W* deviceInterface(LPARAM payload) {
  const auto* header = reinterpret_cast<const DEV_BROADCAST_HDR*>(payload);
  if (!header || header->dbch_devicetype != DBT_DEVTYP_DEVICEINTERFACE) return nullptr;
  return reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(payload);
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto* removed = reinterpret_cast<const RemovalWatcher::Removed*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!removed) {
    if (message != WM_CREATE && message != WM_NCCREATE) return DefWindowProcW(window, message, wParam, lParam);
    removed = static_cast<RemovalWatcher::Removed*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(removed));
  }
  const auto* device = message == WM_DEVICECHANGE && isRemoval(wParam) ? deviceInterface(lParam) : nullptr;
  try {
    if (device) (*removed)(vexa::utils::platform::narrowed(device->dbcc_name));
  } catch (...) {
    // Nothing may be thrown through the system's dispatcher. The reader tells of the removal, too.
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

RemovalWatcher::~RemovalWatcher() {
  // Deliberate: the order is required, null handles and a close that is sent to a window that is gone included. It
  // costs up to four calls that fail.
  UnregisterDeviceNotification(notification);
  DestroyWindow(window);
  SendMessageW(window, WM_CLOSE, 0, 0);
  UnregisterClassW(kClassName, GetModuleHandleW(nullptr));
}

bool RemovalWatcher::watch() {
  const HINSTANCE program = GetModuleHandleW(nullptr);

  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = windowProcedure;
  windowClass.hInstance = program;
  windowClass.lpszClassName = kClassName;
  // Fails while another camera of the process is captured.
  if (RegisterClassExW(&windowClass)) {
    window = CreateWindowExW(0, kClassName, kWindowTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, program, &removed);
  }

  DEV_BROADCAST_DEVICEINTERFACE_W filter = {};
  filter.dbcc_size = sizeof(filter);
  filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  notification = RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_ALL_INTERFACE_CLASSES);
  return window && notification;
}
