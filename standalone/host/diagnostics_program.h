#pragma once

#include <QStringList>

/// Does what the command line asks for and returns the program's exit code. Throws HostError for what the user must put
/// right. Call on the main thread, with a QApplication where the command line asks for windows.
int runDiagnostics(const QStringList& arguments);
