#pragma once

#include <string>

enum class DeviceChange { kArrival, kRemoval };

/// Has Wine's plug-and-play service tell that the camera interface `symbolicLink` arrived or was removed: every window,
/// of whatever process, that registered for the notifications of its interface class gets WM_DEVICECHANGE, as on
/// Windows. Does not wait for these windows. Returns 0, or the error of the service, for which it waits a few seconds
/// when it is only starting.
[[nodiscard]] unsigned long broadcastDeviceChange(DeviceChange change, const std::wstring& symbolicLink);
