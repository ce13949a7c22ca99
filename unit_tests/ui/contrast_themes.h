#pragma once

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <utility>

#include "unit_tests/fakes/fake_platform.h"

struct Theme {
  const char* name;
  QRgb window, windowText, buttonFace, buttonText, highlight, highlightText, hotLight, grayText;
};

// The values of Windows 11's themes and of the two that older Windows has beside them.
inline constexpr Theme kThemes[] = {
    {"Aquatic", 0x202020, 0xFFFFFF, 0x202020, 0xFFFFFF, 0x8EE3F0, 0x263B50, 0x75E9FC, 0xA6A6A6},
    {"Desert", 0xFFFAEF, 0x3D3D3D, 0xFFFAEF, 0x202020, 0x903909, 0xFFF5E3, 0x1C5E75, 0x676767},
    {"Dusk", 0x2D3236, 0xFFFFFF, 0x2D3236, 0xB6F6F0, 0xA1BFDE, 0x212D3B, 0x70EBDE, 0xA6A6A6},
    {"NightSky", 0x000000, 0xFFFFFF, 0x000000, 0xFFEE32, 0xD6B4FD, 0x2B2B2B, 0x8080FF, 0xA6A6A6},
    {"Black", 0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF, 0x1AEBFF, 0x000000, 0xFFFF00, 0x3FF23F},
    {"White", 0xFFFFFF, 0x000000, 0xFFFFFF, 0x000000, 0x37006E, 0xFFFFFF, 0x00009F, 0x600000},
};

/// Switches the scripted Windows to a theme; the colours that it does not set are left-overs.
inline void setTheme(const Theme& theme) {
  fakePlatform() = {.highContrast = true, .shade = 100};
  const std::pair<int, QRgb> colors[] = {{5, theme.window},      {8, theme.windowText}, {15, theme.buttonFace},
                                         {18, theme.buttonText}, {13, theme.highlight}, {14, theme.highlightText},
                                         {26, theme.hotLight},   {17, theme.grayText}};
  for (const auto& [number, color] : colors) fakePlatform().theme[number] = QColor(color);
}

/// WCAG 2's relative luminance.
inline double luminance(QRgb color) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// WCAG 2's contrast ratio.
inline double contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

/// Borders, icons and marks of the focus are seen from this contrast on.
constexpr double kSeen = 3;

/// How many pixels differ so that it is seen; of the part that both pictures have.
inline int differingPixels(const QImage& one, const QImage& other) {
  const QSize common = one.size().boundedTo(other.size());
  int count = 0;
  for (int y = 0; y < common.height(); ++y) {
    for (int x = 0; x < common.width(); ++x) count += contrast(one.pixel(x, y), other.pixel(x, y)) >= kSeen;
  }
  return count;
}
