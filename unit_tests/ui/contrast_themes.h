#pragma once

#include <QColor>

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
