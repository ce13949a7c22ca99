#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

/// Watches for the removal of devices, by a hidden window that gets the system's device broadcasts. Lives on a thread
/// whose message loop feeds it. Owns the window class, the window and the notification; the class belongs to the
/// process, so that only one watcher at a time succeeds.
class RemovalWatcher {
 public:
  /// Called on the watcher's thread with the interface path (UTF-8) of each device that goes away.
  using Removed = std::function<void(std::string path)>;

  explicit RemovalWatcher(Removed onRemoval) : removed(std::move(onRemoval)) {}
  /// Ends the watch; harmless where it never began.
  ~RemovalWatcher();
  RemovalWatcher(const RemovalWatcher&) = delete;
  RemovalWatcher& operator=(const RemovalWatcher&) = delete;

  /// Begins the watch. False when the window class, the window or the notification is not to be had; every one of them
  /// is tried all the same.
  [[nodiscard]] bool watch();

 private:
  Removed removed;
  HWND window = nullptr;
  HDEVNOTIFY notification = nullptr;
};
