#pragma once

#include <QString>

/// Whether a decoded text can be a device's barcode: 1 to 60 characters, ASCII digits and letters only.
bool isPlausibleValue(const QString& text);
