#pragma once

#include <QString>

/// The user's language for a text of the module: a key, a key and a value ("BARCODE_VALUE 123"), or keys that are
/// joined by ": ". What no translation knows stays as it is. Any thread.
QString keyText(const QString& text);
