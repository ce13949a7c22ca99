#pragma once

#include <windows.h>

#include <string>

class WinCameraFrameCapturer;

/// Watches for the removal of devices while a camera is captured, by a hidden window that gets the system's device
/// broadcasts. Lives on the capturer's worker thread, whose message loop feeds it. Owns the window class, the window
/// and the notification; tells the capturer which device went away and does not own it.
class RemovalWatcher {
 public:
  explicit RemovalWatcher(WinCameraFrameCapturer& owner) : capturer(owner) {}
  /// Ends the watch; harmless where it never began.
  ~RemovalWatcher();
  RemovalWatcher(const RemovalWatcher&) = delete;
  RemovalWatcher& operator=(const RemovalWatcher&) = delete;

  /// Begins the watch. False when the window class, the window or the notification is not to be had; every one of them
  /// is tried all the same.
  [[nodiscard]] bool watch();

 private:
  WinCameraFrameCapturer& capturer;
  HWND window = nullptr;
  HDEVNOTIFY notification = nullptr;
};
