#include "standalone/host/system/device_changes.h"

#include <windows.h>
#include <dbt.h>

#include <QCoreApplication>

#include <chrono>

using namespace std::chrono_literals;

namespace {

// A device sends several messages, and its driver needs a moment.
constexpr auto kSettlingTime = 500ms;

HDEVNOTIFY listenAt(HWND window) {
  DEV_BROADCAST_DEVICEINTERFACE_W filter = {};
  filter.dbcc_size = sizeof(filter);
  filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
  return RegisterDeviceNotificationW(window, &filter,
                                     DEVICE_NOTIFY_WINDOW_HANDLE | DEVICE_NOTIFY_ALL_INTERFACE_CLASSES);
}

}  // namespace

struct DeviceChanges::Registration {
  explicit Registration(HWND window) : handle(listenAt(window)) {}
  ~Registration() {
    if (handle) UnregisterDeviceNotification(handle);
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;

  HDEVNOTIFY handle;
};

DeviceChanges::DeviceChanges(WId window)
    : registration(std::make_unique<Registration>(reinterpret_cast<HWND>(window))) {
  settled.setSingleShot(true);
  settled.setInterval(kSettlingTime);
  connect(&settled, &QTimer::timeout, this, &DeviceChanges::changed);
  QCoreApplication::instance()->installNativeEventFilter(this);
}

DeviceChanges::~DeviceChanges() = default;

// The message goes on to every window.
bool DeviceChanges::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
  const auto& native = *static_cast<const MSG*>(message);
  if (native.message == WM_DEVICECHANGE) settled.start();
  return false;
}
