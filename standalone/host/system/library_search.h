#pragma once

#include <QString>

/// From now on libraries come from the program's own folder and from the system's, never from the current folder or the
/// PATH, and the console reads UTF-8. Call it first.
void prepareProcess();

/// Why the system refuses to load a library, in one sentence: the library at fault may be one that `file` needs. Asks
/// the system again: call it right after a failure.
QString loadFailure(const QString& file);
