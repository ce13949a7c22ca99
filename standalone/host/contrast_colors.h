#pragma once

#include <QColor>
#include <QPalette>

#include <optional>

class QSettings;

/// The colours of the user's high-contrast theme that Qt's palette for it lacks or gets wrong. A colour that the system
/// does not tell is invalid.
struct ContrastColors {
  QColor grayText;
  QColor hotTrack;
  QColor highlight;
  QColor highlightText;
};

/// The user's colours; nothing while high contrast is off.
std::optional<ContrastColors> userContrastColors();

/// The same from these two places: `Flags` of high contrast, whose lowest bit says that it is on, and the colours as
/// decimal texts "red green blue".
std::optional<ContrastColors> readContrastColors(const QSettings& highContrast, const QSettings& colors);

/// The palette with disabled texts, links and, in an inactive window, too, the selection in these colours.
QPalette contrastPalette(QPalette palette, const ContrastColors& colors);
