#include "utils/accessibility/high_contrast_style.h"

#include <QLatin1String>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <span>

#include "utils/accessibility/recolored_icons.h"
#include "utils/accessibility/style_sheet.h"

namespace vexa::utils::accessibility {
namespace {

/// GetSysColor's numbers of the colours that Windows' contrast themes set. Only a background and the text that belongs
/// to it are sure to differ: Window and WindowText, ButtonFace and ButtonText, Highlight and HighlightText; GrayText is
/// for what is disabled. All are below 25, where number and position are the same.
enum class SystemColor : int {
  kNone = -1,
  kWindow = 5,
  kWindowText = 8,
  kHighlight = 13,
  kHighlightText = 14,
  kButtonFace = 15,
  kGrayText = 17,
  kButtonText = 18,
};

using enum SystemColor;

QColor colorOf(const QList<QColor>& systemColors, SystemColor color) {
  return systemColors.value(static_cast<int>(color));
}

struct Property {
  const char* name;
  /// The value's fixed text; the colour, where there is one, stands behind it.
  const char* text;
  SystemColor color = kNone;
};

constexpr Property background(SystemColor color) {
  return {"background-color", "", color};
}
constexpr Property text(SystemColor color) {
  return {"color", "", color};
}
constexpr Property border(const char* kind, SystemColor color) {
  return {"border", kind, color};
}
constexpr Property radius(const char* pixels) {
  return {"border-radius", pixels};
}
constexpr const char* kThin = "1px solid ";
constexpr const char* kThick = "2px solid ";
constexpr const char* kDashed = "2px dashed ";
constexpr Property kNoBorder = {"border", "none"};
constexpr Property kNoOutline = {"outline-style", "none"};

struct ColorRule {
  const char* selector;
  std::array<Property, 5> properties;
};

// Where two rules of equal weight fit, the later one counts: the states stand behind what they change. The frame has
// square corners: what is outside a round one is black where the window system cannot blend.
constexpr ColorRule kColorRules[] = {
    {"QWidget#border_widget", {background(kWindow), border(kThin, kWindowText)}},
    {"QWidget#camera_barcode_test_information_message_container",
     {background(kWindow), border(kThin, kWindowText), radius("8px")}},
    {"QWidget#camera_barcode_test_warning_container",
     {background(kWindow), border(kThick, kWindowText), radius("8px")}},
    // The focus takes no place that was not there before. A picture has its own mark of it.
    {"QLabel", {text(kWindowText), {"border", "2px solid transparent"}, kNoOutline}},
    {"QLabel#camera_capture_test_lb_image_view", {kNoBorder}},
    {"QLabel#camera_barcode_test_camera_image", {kNoBorder}},
    {"QLabel:disabled", {text(kGrayText)}},
    {"QLabel:focus", {border(kThick, kWindowText), radius("4px")}},
    {"*:selected", {background(kHighlight), text(kHighlightText)}},
    {"QPushButton",
     {background(kButtonFace), text(kButtonText), border(kThin, kButtonText), radius("14px"), kNoOutline}},
    {"QPushButton#camera_capture_test_header_close", {radius("4px")}},
    {"QPushButton#camera_barcode_test_header_close", {radius("4px")}},
    {"QPushButton:hover", {background(kHighlight), text(kHighlightText)}},
    {"QPushButton:disabled", {background(kButtonFace), text(kGrayText), {"border-color", "", kGrayText}}},
    {"QPushButton:active:focus", {background(kHighlight), text(kHighlightText), border(kThick, kButtonText)}},
};

constexpr Property kWide = {"min-width", "26px"};
constexpr Property kHigh = {"min-height", "26px"};

// Which step it is shows also without its icon: what is over is dashed, what comes is thin.
constexpr ColorRule kStepsWithoutIcon[] = {
    {"QLabel#camera_barcode_test_step_one_current", {border(kThick, kWindowText), radius("14px"), kWide, kHigh}},
    {"QLabel#camera_barcode_test_step_one_warning", {border(kDashed, kWindowText), radius("4px"), kWide, kHigh}},
    {"QLabel#camera_barcode_test_step_two_current", {border(kThick, kWindowText), radius("14px"), kWide, kHigh}},
    {"QLabel#camera_barcode_test_step_two_waiting", {border(kThin, kWindowText), radius("14px"), kWide, kHigh}},
};

StyleRule withColors(const ColorRule& rule, const QList<QColor>& systemColors) {
  StyleRule result{QLatin1String(rule.selector), {}};
  for (const Property& property : rule.properties) {
    if (!property.name) break;
    const QString color = property.color == kNone ? QString() : colorOf(systemColors, property.color).name();
    result.declarations.append({QLatin1String(property.name), QLatin1String(property.text) + color});
  }
  return result;
}

constexpr const char* kButtonStates[] = {":hover", ":disabled", ":active:focus"};

/// Whether a declaration says something about colours, backgrounds or borders; where a background picture lies is
/// neither.
bool isColorOrBorder(const QString& property) {
  static const QRegularExpression kColorOrBorder(QStringLiteral("color|^background(-image)?$|^border|^outline"),
                                                 QRegularExpression::CaseInsensitiveOption);
  return property.contains(kColorOrBorder);
}

bool isButton(const QString& selector) {
  return selector.contains(QLatin1String("Button")) || selector.contains(QLatin1String("_button")) ||
         selector.contains(QLatin1String("_close"));
}

/// The colour of an icon of the widgets that a selector fits. It follows the states as the rules above do.
SystemColor iconColor(const QString& selector) {
  static const QRegularExpression kHighlighted(QStringLiteral(":(hover|focus|pressed)"));
  if (selector.contains(QLatin1String(":disabled"))) return kGrayText;
  if (!isButton(selector)) return kWindowText;
  return selector.contains(kHighlighted) ? kHighlightText : kButtonText;
}

/// The SVG file that a value names; empty when it names none.
QString svgIn(const QString& value) {
  static const QRegularExpression kSvg(QStringLiteral(R"re(url\(\s*["']?([^"')]+\.svg)["']?\s*\))re"),
                                       QRegularExpression::CaseInsensitiveOption);
  return kSvg.match(value).captured(1);
}

/// Writes the sheet, rule by rule.
class SheetWriter {
 public:
  SheetWriter(const QList<QColor>& colors, RecoloredIcons& recoloredIcons)
      : systemColors(colors), icons(recoloredIcons) {}

  void addHostRule(const StyleRule& rule) {
    StyleRule kept{rule.selector, {}};
    for (const StyleDeclaration& declaration : rule.declarations) {
      const QString svg = svgIn(declaration.value);
      if (!svg.isEmpty()) {
        kept.declarations += icon(rule.selector, declaration.property, svg);
      } else if (!isColorOrBorder(declaration.property)) {
        kept.declarations.append(declaration);
      }
    }
    add(kept);
    if (isButton(rule.selector) && !rule.selector.contains(u':')) addStates(rule);
  }

  void addColors(std::span<const ColorRule> rules) {
    for (const ColorRule& rule : rules) add(withColors(rule, systemColors));
  }

  bool hasIcon(const QString& selector) const {
    return std::any_of(withIcon.begin(), withIcon.end(),
                       [&](const QString& known) { return known.contains(selector.section(u'#', 1)); });
  }

  const QString& sheet() const { return text; }

 private:
  void add(const StyleRule& rule) {
    if (!rule.declarations.isEmpty()) text += toText(rule);
  }

  /// A button changes its background where the host's icon may stay the same.
  void addStates(const StyleRule& rule) {
    for (const char* const state : kButtonStates) {
      StyleRule variant{rule.selector + QLatin1String(state), {}};
      for (const StyleDeclaration& declaration : rule.declarations) {
        variant.declarations += icon(variant.selector, declaration.property, svgIn(declaration.value));
      }
      add(variant);
    }
  }

  /// What shows an icon in the colour of a selector's widgets; nothing when there is none.
  QList<StyleDeclaration> icon(const QString& selector, const QString& property, const QString& svg) {
    const QString path = svg.isEmpty() ? QString() : icons.path(svg, colorOf(systemColors, iconColor(selector)));
    if (path.isEmpty()) return {};
    withIcon.append(selector);
    const QString value = QStringLiteral("url(\"%1\")").arg(path);
    // Qt reads a property of its own once, for all states.
    if (property == QLatin1String("qproperty-icon")) return {{QStringLiteral("icon"), value}};
    if (property.compare(QLatin1String("background"), Qt::CaseInsensitive) != 0) return {{property, value}};
    // The rest of the shorthand is lost.
    return {{QStringLiteral("background-image"), value},
            {QStringLiteral("background-repeat"), QStringLiteral("no-repeat")},
            {QStringLiteral("background-position"), QStringLiteral("center")}};
  }

  const QList<QColor>& systemColors;
  RecoloredIcons& icons;
  QString text;
  /// The selectors of the rules that have one.
  QStringList withIcon;
};

}  // namespace

QString highContrastStyleSheet(const QString& hostSheet, const QList<QColor>& systemColors, RecoloredIcons& icons) {
  SheetWriter writer(systemColors, icons);
  for (const StyleRule& rule : parseStyleSheet(hostSheet)) writer.addHostRule(rule);
  writer.addColors(kColorRules);
  for (const ColorRule& step : kStepsWithoutIcon) {
    if (!writer.hasIcon(QLatin1String(step.selector))) writer.addColors({&step, 1});
  }
  return writer.sheet();
}

}  // namespace vexa::utils::accessibility
