#include "standalone/host/contrast_colors.h"

#include <QSettings>
#include <QStringList>

#include <initializer_list>

namespace {

QColor readColor(const QSettings& colors, const char* name) {
  const QStringList parts = colors.value(QLatin1String(name)).toString().split(QLatin1Char(' '));
  return parts.size() == 3 ? QColor(parts[0].toInt(), parts[1].toInt(), parts[2].toInt()) : QColor();
}

void setColor(QPalette& palette, QPalette::ColorGroup group, std::initializer_list<QPalette::ColorRole> roles,
              const QColor& color) {
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
  return ContrastColors{readColor(colors, "GrayText"), readColor(colors, "HotTrackingColor"),
                        readColor(colors, "Hilight"), readColor(colors, "HilightText")};
}

QPalette contrastPalette(QPalette palette, const ContrastColors& colors) {
  setColor(palette, QPalette::Disabled, {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, colors.grayText);
  setColor(palette, QPalette::All, {QPalette::Link, QPalette::LinkVisited}, colors.hotTrack);
  setColor(palette, QPalette::All, {QPalette::Highlight}, colors.highlight);
  setColor(palette, QPalette::All, {QPalette::HighlightedText}, colors.highlightText);
  return palette;
}
