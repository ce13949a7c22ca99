#pragma once

#include <QString>

/// From now on libraries come from the program's own folder and from the system's, never from the current folder or the
/// PATH. Call it first.
void searchOwnAndSystemFolders();

/// Why the system refuses to load a library, in one sentence: the library at fault may be one that `file` needs. Asks
/// the system again: call it right after a failure.
QString loadFailure(const QString& file);
