#pragma once

#include <memory>

/// Holds the user-interface thread still in its event loop, so that another thread may touch a widget for a moment:
/// what Qt keeps of a window's changes is not made for two threads at once. On Windows the thread goes on answering
/// what others send to its windows, since a resize from another thread waits for that answer.
///
/// When the user-interface thread does not come to its event loop within half a second, it is not held at all. It is
/// still by nature for whoever runs on it.
class ParkedUserInterfaceThread {
 public:
  ParkedUserInterfaceThread();
  ~ParkedUserInterfaceThread();
  ParkedUserInterfaceThread(const ParkedUserInterfaceThread&) = delete;
  ParkedUserInterfaceThread& operator=(const ParkedUserInterfaceThread&) = delete;

  /// Whether the user-interface thread stands still until this object's end.
  [[nodiscard]] bool isStill() const { return still; }

 private:
  struct Meeting;
  std::shared_ptr<Meeting> meeting;
  bool still = true;
};
