#pragma once

#include <string>

/// Tells all top-level and message-only windows of this process that the device interface `symbolicLink` was removed,
/// as Windows does: WM_DEVICECHANGE with DBT_DEVICEREMOVECOMPLETE. Returns at once; a thread of its own sends, for
/// which nobody ever waits, so that a window whose thread waits for the caller cannot hold the caller up.
void broadcastRemoval(const std::wstring& symbolicLink);
