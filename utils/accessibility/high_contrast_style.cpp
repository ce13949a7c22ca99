#include "utils/accessibility/high_contrast_style.h"

#include <span>

namespace vexa::utils::accessibility {
namespace {

/// Windows' numbers of the colours that a high-contrast theme lets the user choose.
enum class SystemColor : int {
  kWindow = 5,
  kWindowText = 8,
  kHighlight = 13,
  kHighlightText = 14,
  kButtonFace = 15,
  kGrayText = 17,
  kButtonText = 18,
};

struct Property {
  const char* name;
  /// The value's fixed text; the colour, where there is one, stands behind it.
  const char* text;
  SystemColor color;
  bool hasColor = true;
};

constexpr Property background(SystemColor color) {
  return {"background-color", "", color};
}
constexpr Property text(SystemColor color) {
  return {"color", "", color};
}
constexpr Property thinBorder(SystemColor color) {
  return {"border", "1px solid ", color};
}
constexpr Property thickBorder(SystemColor color) {
  return {"border", "2px solid ", color};
}
constexpr Property radius(const char* pixels) {
  return {"border-radius", pixels, {}, false};
}
constexpr Property kNoOutline = {"outline-style", "none", {}, false};

constexpr Property kFrame[] = {background(SystemColor::kWindow), thinBorder(SystemColor::kWindowText), radius("8px")};
constexpr Property kMessageBox[] = {background(SystemColor::kWindow), thinBorder(SystemColor::kWindowText),
                                    radius("4px")};
constexpr Property kWarningBox[] = {background(SystemColor::kWindow), thickBorder(SystemColor::kHighlight),
                                    radius("4px")};
constexpr Property kLabel[] = {text(SystemColor::kWindowText), kNoOutline};
constexpr Property kFocusedLabel[] = {thinBorder(SystemColor::kHighlight)};
constexpr Property kButton[] = {background(SystemColor::kButtonFace), text(SystemColor::kButtonText),
                                thinBorder(SystemColor::kButtonText), radius("14px"), kNoOutline};
constexpr Property kPointedAt[] = {background(SystemColor::kHighlight), text(SystemColor::kHighlightText),
                                   thinBorder(SystemColor::kHighlightText)};
constexpr Property kFocusedButton[] = {thickBorder(SystemColor::kHighlight)};
constexpr Property kDisabled[] = {text(SystemColor::kGrayText), thinBorder(SystemColor::kGrayText)};
constexpr Property kCloseButton[] = {background(SystemColor::kWindow), text(SystemColor::kWindowText), radius("4px")};

struct Rule {
  const char* selector;
  std::span<const Property> properties;
};

// Where two rules of equal weight fit, the later one counts: the states stand behind what they change.
constexpr Rule kRules[] = {
    {"QWidget#border_widget", kFrame},
    {"QWidget#camera_barcode_test_information_message_container", kMessageBox},
    {"QWidget#camera_barcode_test_warning_container", kWarningBox},
    {"QLabel", kLabel},
    {"QLabel:focus", kFocusedLabel},
    {"QPushButton", kButton},
    {"QPushButton:focus", kFocusedButton},
    {"QPushButton:hover", kPointedAt},
    {"QPushButton:disabled", kDisabled},
    {"QPushButton#camera_capture_test_header_close", kCloseButton},
    {"QPushButton#camera_capture_test_header_close:focus", kFocusedButton},
    {"QPushButton#camera_capture_test_header_close:hover", kPointedAt},
    {"QPushButton#camera_barcode_test_header_close", kCloseButton},
    {"QPushButton#camera_barcode_test_header_close:focus", kFocusedButton},
    {"QPushButton#camera_barcode_test_header_close:hover", kPointedAt},
};

QString colorName(const QList<QColor>& systemColors, SystemColor color) {
  // All colours in use have numbers below 25, where position and number are the same.
  return systemColors.value(static_cast<int>(color)).name();
}

}  // namespace

QString highContrastStyleSheet(const QList<QColor>& systemColors) {
  QString sheet;
  for (const Rule& rule : kRules) {
    sheet += QLatin1String(rule.selector) + QLatin1String(" {\n");
    for (const Property& property : rule.properties) {
      sheet += QLatin1String("  ") + QLatin1String(property.name) + QLatin1String(": ") + QLatin1String(property.text);
      if (property.hasColor) sheet += colorName(systemColors, property.color);
      sheet += QLatin1String(";\n");
    }
    sheet += QLatin1String("}\n");
  }
  return sheet;
}

}  // namespace vexa::utils::accessibility
