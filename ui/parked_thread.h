#pragma once

#include <memory>

/// Holds the user-interface thread still in its event loop, so that another thread may touch a widget for a moment:
/// what Qt keeps of a window's changes is not made for two threads at once. On Windows the thread goes on answering
/// what others send to its windows, since a resize from another thread waits for that answer.
///
/// Neither thread waits for the other for longer than half a second: when the user-interface thread does not come to
/// its event loop in that time, the other one goes on regardless. On the user-interface thread itself nothing happens.
class ParkedUserInterfaceThread {
 public:
  ParkedUserInterfaceThread();
  ~ParkedUserInterfaceThread();
  ParkedUserInterfaceThread(const ParkedUserInterfaceThread&) = delete;
  ParkedUserInterfaceThread& operator=(const ParkedUserInterfaceThread&) = delete;

 private:
  struct Meeting;
  std::shared_ptr<Meeting> meeting;
};
