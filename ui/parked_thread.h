#pragma once

#include <memory>

/// Holds the user-interface thread still in its event loop, so that another thread may touch a widget for a moment:
/// what Qt keeps of a window's changes is not made for two threads at once.
///
/// Neither thread waits for the other for longer than half a second. A user-interface thread that does not come to its
/// event loop in that time is waiting for something, and paints nothing either. On that thread itself nothing happens.
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
