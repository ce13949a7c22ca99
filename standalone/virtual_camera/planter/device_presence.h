#pragma once

#include <QString>

/// Held while cameras are planted, unplanted, plugged, unplugged or counted: by one thread of all programs of a Wine
/// prefix at a time, which may hold it several times over. Holds nothing where the system is out of handles.
class PresenceLock {
 public:
  PresenceLock();
  ~PresenceLock();
  PresenceLock(const PresenceLock&) = delete;
  PresenceLock& operator=(const PresenceLock&) = delete;

 private:
  void* mutex;
};

/// Whether the camera with this symbolic link is planted and plugged in. This is what SetupAPI's lists of present
/// devices go by, too.
[[nodiscard]] bool isPluggedIn(const QString& symbolicLink);

/// Which of its arrivals in this Wine prefix a camera is here by, from 1 on; negative while it is unplugged, 0 before
/// the first. What was opened under another number is lost, as it is on Windows.
[[nodiscard]] int arrivalOf(const QString& symbolicLink);

/// Plugs a planted camera in or unplugs it, and has it told to the windows that registered for it. Nothing happens when
/// it is so already. Returns an empty text, or one sentence about what failed.
[[nodiscard]] QString setPluggedIn(const QString& symbolicLink, bool pluggedIn);

/// Counts an attempt to open a planted camera; returns how many there were since it was planted, with this one.
/// Throws std::system_error, also when the camera is not planted.
int countOpen(const QString& symbolicLink);

/// How many attempts countOpen counted.
[[nodiscard]] int openCount(const QString& symbolicLink);
