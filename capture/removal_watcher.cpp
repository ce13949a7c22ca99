#include "capture/removal_watcher.h"

#include <windows.h>
#include <dbt.h>

#include <QString>

#include "capture/win_camera_frame_capturer.h"

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
  auto* capturer = reinterpret_cast<WinCameraFrameCapturer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!capturer) {
    if (message != WM_CREATE && message != WM_NCCREATE) return DefWindowProcW(window, message, wParam, lParam);
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    capturer = static_cast<WinCameraFrameCapturer*>(creation->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(capturer));
  }
  if (message == WM_DEVICECHANGE && isRemoval(wParam)) {
    if (const auto* removed = deviceInterface(lParam)) {
      capturer->onDeviceRemoved(QString::fromWCharArray(removed->dbcc_name).toStdString());
    }
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

RemovalWatcher::~RemovalWatcher() {
  // Close is sent to the window that is gone already, and null handles are passed on: the order is part of what hosts
  // were tested with, so it is not to be tidied.
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
  // Fails while another capturer of the process runs: only one camera is watched at a time.
  if (RegisterClassExW(&windowClass)) {
    window = CreateWindowExW(0, kClassName, kWindowTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, program, &capturer);
  }

  DEV_BROADCAST_DEVICEINTERFACE_W filter = {};
  filter.dbcc_size = sizeof(filter);
  filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  notification = RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_ALL_INTERFACE_CLASSES);
  return window && notification;
}
