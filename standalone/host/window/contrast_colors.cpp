#include "standalone/host/window/contrast_colors.h"

#include <QSettings>
#include <QStringList>

#include <initializer_list>

namespace {

using Roles = std::initializer_list<QPalette::ColorRole>;

QColor readColor(const QSettings& colors, const char* name) {
  const QStringList parts = colors.value(QLatin1String(name)).toString().split(QLatin1Char(' '));
  return parts.size() == 3 ? QColor(parts[0].toInt(), parts[1].toInt(), parts[2].toInt()) : QColor();
}

void setColor(QPalette& palette, QPalette::ColorGroup group, const QColor& color, Roles roles) {
  if (!color.isValid()) return;
  for (const QPalette::ColorRole role : roles) palette.setColor(group, role, color);
}

}  // namespace

// Where Windows keeps what the user chose; the functions that tell the same need its headers.
std::optional<ContrastColors> userContrastColors() {
  return readContrastColors(
      QSettings(QStringLiteral(R"(HKEY_CURRENT_USER\Control Panel\Accessibility\HighContrast)"),
                QSettings::NativeFormat),
      QSettings(QStringLiteral(R"(HKEY_CURRENT_USER\Control Panel\Colors)"), QSettings::NativeFormat));
}

std::optional<ContrastColors> readContrastColors(const QSettings& highContrast, const QSettings& colors) {
  constexpr uint kOn = 1;
  if (!(highContrast.value(QStringLiteral("Flags")).toUInt() & kOn)) return std::nullopt;
  return ContrastColors{readColor(colors, "Window"),           readColor(colors, "WindowText"),
                        readColor(colors, "ButtonFace"),       readColor(colors, "ButtonText"),
                        readColor(colors, "Hilight"),          readColor(colors, "HilightText"),
                        readColor(colors, "HotTrackingColor"), readColor(colors, "GrayText")};
}

QPalette contrastPalette(QPalette palette, const ContrastColors& colors) {
  constexpr auto kAll = QPalette::All;
  setColor(palette, kAll, colors.window, {QPalette::Window, QPalette::Base, QPalette::AlternateBase});
  setColor(palette, kAll, colors.windowText,
           {QPalette::WindowText, QPalette::Text, QPalette::BrightText, QPalette::PlaceholderText, QPalette::Light,
            QPalette::Midlight, QPalette::Mid, QPalette::Dark, QPalette::Shadow});
  setColor(palette, kAll, colors.buttonFace, {QPalette::Button});
  setColor(palette, kAll, colors.buttonText, {QPalette::ButtonText});
  setColor(palette, kAll, colors.highlight, {QPalette::Highlight});
  setColor(palette, kAll, colors.highlightText, {QPalette::HighlightedText});
  setColor(palette, kAll, colors.hotTrack, {QPalette::Link, QPalette::LinkVisited});
  setColor(palette, QPalette::Disabled, colors.grayText,
           {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText});
  // Disabled texts have a shadow in this colour.
  setColor(palette, QPalette::Disabled, colors.window, {QPalette::Light});
  return palette;
}
