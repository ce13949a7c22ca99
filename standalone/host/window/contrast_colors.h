#pragma once

#include <QColor>
#include <QPalette>

#include <optional>

class QSettings;

/// The colours of the user's high-contrast theme. One that the system does not tell is invalid.
struct ContrastColors {
  QColor window;
  QColor windowText;
  QColor buttonFace;
  QColor buttonText;
  QColor highlight;
  QColor highlightText;
  QColor hotTrack;
  QColor grayText;

  bool operator==(const ContrastColors&) const = default;
};

/// The user's colours; nothing while high contrast is off.
std::optional<ContrastColors> userContrastColors();

/// The same from these two places: `Flags` of high contrast, whose lowest bit says that it is on, and the colours as
/// decimal texts "red green blue".
std::optional<ContrastColors> readContrastColors(const QSettings& highContrast, const QSettings& colors);

/// The palette in these colours; an invalid one changes nothing. Qt's own palette for a high-contrast theme mixes the
/// colour of disabled texts, has a fixed one for links, none for the selection of an inactive window, and for frames
/// what the theme before left.
QPalette contrastPalette(QPalette palette, const ContrastColors& colors);
