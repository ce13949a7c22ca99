#pragma once

#include <QString>

/// Loads the texts of the program and of the module: those of `wanted` ("en", "de") or, where it is empty, of the
/// language that the user chose in the window, else of the system's. Call it once, with an application.
void useLanguage(const QString& wanted);

/// The language whose texts are loaded: "en" or "de".
QString languageInUse();
