#pragma once

#include <QString>

/// Whether the camera with this symbolic link is planted and plugged in. This is what SetupAPI's lists of present
/// devices go by, too.
[[nodiscard]] bool isPluggedIn(const QString& symbolicLink);

/// Which of its arrivals a camera is here by, from 1 on; 0 while it is unplugged. What was opened under another number
/// is lost, as it is on Windows.
[[nodiscard]] int arrivalOf(const QString& symbolicLink);

/// Plugs a planted camera in or unplugs it, and has it told to the windows that registered for it. Nothing happens when
/// it is so already. Returns an empty text, or one sentence about what failed.
[[nodiscard]] QString setPluggedIn(const QString& symbolicLink, bool pluggedIn);

/// Counts an attempt to open a planted camera; returns how many there were since it was planted, with this one.
/// Throws std::system_error.
int countOpen(const QString& symbolicLink);

/// How many attempts countOpen counted.
[[nodiscard]] int openCount(const QString& symbolicLink);
