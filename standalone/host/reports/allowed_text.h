#pragma once

#include <QString>

/// A text that a device may have made up, fit for XML and HTML: what neither may hold is shown as U+FFFD. Nothing is
/// escaped yet.
QString allowedText(const QString& text);
