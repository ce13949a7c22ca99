// What the dialogs look like, under Windows' contrast themes and without, measured from what is drawn. With
// MODULE_CAMERA_RATIOS=1 it prints what it measured.

#include <QDir>
#include <QLabel>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <ostream>
#include <set>
#include <string>

#include "unit_tests/ui/contrast_themes.h"
#include "unit_tests/ui/dialog_helpers.h"
#include "utils/platform/folder_path.h"

void PrintTo(const Theme& theme, std::ostream* stream) {
  *stream << theme.name;
}

namespace {

/// WCAG 2's relative luminance.
double luminance(QRgb color) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// WCAG 2's contrast ratio.
double contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

constexpr double kText = 7;
constexpr double kIcon = 3;

constexpr const char* kLabels[] = {"camera_barcode_test_header_label", "camera_barcode_test_information_message",
                                   "camera_barcode_test_warning_message", "camera_barcode_test_warning_message_small",
                                   "camera_barcode_test_fail_text_label"};
constexpr const char* kIcons[] = {"camera_barcode_test_header_icon", "camera_barcode_test_warning_message_icon"};

std::string text(QRgb color) {
  return QColor(color).name().toStdString();
}

struct Measured {
  /// The most frequent colour.
  QRgb background;
  /// The one that differs most from it.
  QRgb foreground;
};

Measured measure(const QImage& picture) {
  std::map<QRgb, int> pixels;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++pixels[picture.pixel(x, y) & RGB_MASK];
  }
  const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
  const QRgb background = std::max_element(pixels.begin(), pixels.end(), fewer)->first;
  const auto weaker = [&](const auto& a, const auto& b) {
    return contrast(background, a.first) < contrast(background, b.first);
  };
  return {background, std::max_element(pixels.begin(), pixels.end(), weaker)->first};
}

int differingPixels(const QImage& one, const QImage& other) {
  const QSize common = one.size().boundedTo(other.size());
  int count = 0;
  for (int y = 0; y < common.height(); ++y) {
    for (int x = 0; x < common.width(); ++x) count += contrast(one.pixel(x, y), other.pixel(x, y)) >= kIcon;
  }
  return count;
}

class Look : public testing::Test {
 protected:
  template <class Dialog>
  std::unique_ptr<Dialog> open() {
    auto dialog = std::make_unique<Dialog>(nullptr, &hostFilter);
    QImage frame(640, 480, QImage::Format_RGB32);
    frame.fill(Qt::darkGray);
    dialog->LoadFrame(frame);
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
    QTest::qWait(20);
    return dialog;
  }

  /// What is drawn in a widget, without its border.
  static Measured measured(QWidget& dialog, const char* name) {
    auto* const widget = dialog.findChild<QWidget*>(QLatin1String(name));
    EXPECT_TRUE(widget && widget->isVisible()) << name;
    // Round corners show what is behind a button.
    const QPoint inset = qobject_cast<QPushButton*>(widget) ? QPoint(8, 7) : QPoint(5, 3);
    const QRect inside(widget->mapTo(&dialog, inset), widget->size() - 2 * QSize(inset.x(), inset.y()));
    const Measured colors = measure(dialog.grab(inside).toImage());
    if (std::getenv("MODULE_CAMERA_RATIOS")) {
      std::printf("%7.4f  %s on %s  %s\n", contrast(colors.background, colors.foreground),
                  text(colors.foreground).c_str(), text(colors.background).c_str(), name);
    }
    return colors;
  }

  /// The colours across a widget's upper border, from outside inwards.
  static std::set<std::string> topColors(QWidget& dialog, const char* name) {
    auto* const widget = dialog.findChild<QWidget*>(QLatin1String(name));
    const QPoint edge = widget->mapTo(&dialog, QPoint(widget->width() / 2, -3));
    const QImage column = dialog.grab(QRect(edge, QSize(1, 9))).toImage();
    std::set<std::string> colors;
    for (int y = 0; y < column.height(); ++y) colors.insert(text(column.pixel(0, y)));
    return colors;
  }

  static void hover(QPushButton& button) {
    button.setAttribute(Qt::WA_UnderMouse);
    const QPointF middle(button.rect().center());
    QMouseEvent move(QEvent::MouseMove, middle, button.mapToGlobal(middle), Qt::NoButton, {}, {});
    QApplication::sendEvent(&button, &move);
  }

  QTemporaryDir folder;
  QObject hostFilter;
};

class LookTest : public Look, public testing::WithParamInterface<Theme> {
 protected:
  void SetUp() override {
    setTheme(GetParam());
    fakePlatform().programData = folder.path();
  }

  /// Whether what is drawn is a background and what belongs to it, and differs enough.
  static void expectPair(QWidget& dialog, const char* name, QRgb background, QRgb foreground, double required) {
    const auto [back, fore] = measured(dialog, name);
    // An icon may fill more than half of its place.
    const std::set<std::string> seen = {text(back), text(fore)};
    EXPECT_EQ(seen, std::set({text(background), text(foreground)})) << name;
    // Desert's own selection is a little weaker.
    const bool isDesertsSelection = seen == std::set<std::string>{"#903909", "#fff5e3"};
    EXPECT_GE(contrast(back, fore), isDesertsSelection ? 6.9988 : required) << name;
  }

  static void expectBorder(QWidget& dialog, const char* name, QRgb color) {
    const std::set<std::string> seen = topColors(dialog, name);
    EXPECT_TRUE(seen.contains(text(color))) << name;
    EXPECT_TRUE(std::any_of(seen.begin(), seen.end(), [&](const std::string& other) {
      return contrast(color, QColor(other.c_str()).rgb()) >= kIcon;
    })) << name;
  }
};

TEST_P(LookTest, TextAndIconsStandOnWhatBelongsToThem) {
  const Theme& theme = GetParam();
  const auto capture = open<CameraDialog>();
  const auto barcode = open<CameraBarcodeDialog>();
  expectPair(*capture, "camera_capture_test_header_label", theme.window, theme.windowText, kText);
  expectPair(*capture, "camera_capture_test_header_icon", theme.window, theme.windowText, kIcon);
  expectPair(*barcode, "camera_barcode_test_step_one_current", theme.windowText, theme.window, kIcon);
  expectPair(*barcode, "camera_barcode_test_step_two_waiting", theme.window, theme.windowText, kIcon);
  barcode->ShowRetry();
  QTest::qWait(20);
  for (const char* const label : kLabels) expectPair(*barcode, label, theme.window, theme.windowText, kText);
  for (const char* const icon : kIcons) expectPair(*barcode, icon, theme.window, theme.windowText, kIcon);
}

TEST_P(LookTest, ButtonsShowTheirStatesInPairsOfTheirOwn) {
  const Theme& theme = GetParam();
  const auto dialog = open<CameraBarcodeDialog>();
  for (const auto& [name, required] :
       {std::pair("camera_barcode_test_button_fail", kText), std::pair("camera_barcode_test_header_close", kIcon)}) {
    auto& button = *dialog->findChild<QPushButton*>(QLatin1String(name));
    button.setFocus();
    expectPair(*dialog, name, theme.highlight, theme.highlightText, required);
    expectBorder(*dialog, name, theme.buttonText);
    button.clearFocus();
    expectPair(*dialog, name, theme.buttonFace, theme.buttonText, required);
    expectBorder(*dialog, name, theme.buttonText);
    hover(button);
    expectPair(*dialog, name, theme.highlight, theme.highlightText, required);
    button.setEnabled(false);
    expectPair(*dialog, name, theme.buttonFace, theme.grayText, kIcon);
    expectBorder(*dialog, name, theme.grayText);
  }
}

TEST_P(LookTest, BoxesAndTheTextThatIsReadHaveABorder) {
  fakePlatform().narratorRuns = true;
  const auto dialog = open<CameraBarcodeDialog>();
  dialog->ShowRetry();
  QTest::qWait(20);
  for (const char* const name : {"border_widget", "camera_barcode_test_information_message_container",
                                 "camera_barcode_test_warning_container", "camera_barcode_test_header_label"}) {
    expectBorder(*dialog, name, GetParam().windowText);
  }
}

TEST_P(LookTest, StepsDifferInShapeWithAndWithoutTheirIcons) {
  for (const QString& programData : {folder.path(), QString()}) {
    fakePlatform().programData = programData;
    const auto dialog = open<CameraBarcodeDialog>();
    std::vector<QImage> shapes;
    const auto take = [&](const char* name) {
      auto* const step = dialog->findChild<QWidget*>(QLatin1String("camera_barcode_test_step_") + QLatin1String(name));
      shapes.push_back(dialog->grab({step->mapTo(dialog.get(), QPoint()), step->size()}).toImage());
    };
    take("one_current");
    take("two_waiting");
    dialog->ShowRetry();
    QTest::qWait(20);
    take("one_warning");
    // Both are in the two colours of windows: what differs is the shape.
    EXPECT_GT(differingPixels(shapes[0], shapes[1]), 40) << programData.toStdString();
    EXPECT_GT(differingPixels(shapes[0], shapes[2]), 40);
    EXPECT_GT(differingPixels(shapes[1], shapes[2]), 40);
  }
}

TEST_P(LookTest, OnlyColorsThatAThemeSetsAreUsed) {
  const QString sheet = open<CameraBarcodeDialog>()->styleSheet();
  std::set<QString> allowed;
  for (const QColor& color : fakePlatform().theme) allowed.insert(color.name());
  static const QRegularExpression kColor(QStringLiteral("#[0-9a-f]{6}\\b"));
  int found = 0;
  for (auto match = kColor.globalMatch(sheet); match.hasNext(); ++found) {
    const QString color = match.next().captured();
    EXPECT_TRUE(allowed.contains(color)) << color.toStdString();
  }
  EXPECT_GT(found, 10);
}

// Windows tells every window of both, in either order.
TEST_P(LookTest, OpenDialogsFollowTheThemeAndLeaveNothingBehind) {
  constexpr std::uint32_t kSystemColorsChanged = 0x15;  // WM_SYSCOLORCHANGE
  constexpr std::uint32_t kThemeChanged = 0x31A;        // WM_THEMECHANGED
  fakePlatform().highContrast = false;
  const auto capture = open<CameraDialog>();
  const auto barcode = open<CameraBarcodeDialog>();
  const QString normal = capture->styleSheet();
  const QDir temporary(
      QString::fromStdWString(vexa::utils::platform::GetFolderPath(vexa::utils::platform::kTemporaryFolder)));
  for (const auto& [first, second] :
       {std::pair(kSystemColorsChanged, kThemeChanged), std::pair(kThemeChanged, kSystemColorsChanged)}) {
    for (const bool on : {true, false}) {
      fakePlatform().highContrast = on;
      sendToWindows(first);
      sendToWindows(second);
      QTest::qWait(150);
      EXPECT_EQ(capture->styleSheet() == normal, !on);
      EXPECT_EQ(barcode->styleSheet() == normal, !on);
      EXPECT_EQ(temporary.isEmpty(), !on);
      if (on) expectPair(*capture, "camera_capture_test_header_label", GetParam().window, GetParam().windowText, kText);
    }
  }
}

TEST_F(Look, OfTheHostIsLegibleToo) {
  constexpr double kNormalText = 4.5;
  fakePlatform() = {};
  const auto ratio = [](QWidget& dialog, const char* name) {
    const auto [background, foreground] = measured(dialog, name);
    return contrast(background, foreground);
  };
  const auto capture = open<CameraDialog>();
  const auto barcode = open<CameraBarcodeDialog>();
  EXPECT_GE(ratio(*capture, "camera_capture_test_header_label"), kNormalText);
  EXPECT_GE(ratio(*capture, "camera_capture_test_header_icon"), kIcon);
  EXPECT_GE(ratio(*barcode, "camera_barcode_test_step_one_current"), kIcon);
  EXPECT_GE(ratio(*barcode, "camera_barcode_test_step_two_waiting"), kIcon);
  barcode->ShowRetry();
  QTest::qWait(20);
  for (const char* const label : kLabels) EXPECT_GE(ratio(*barcode, label), kNormalText) << label;
  for (const char* const icon : kIcons) EXPECT_GE(ratio(*barcode, icon), kIcon) << icon;
  EXPECT_GE(ratio(*barcode, "camera_barcode_test_step_one_warning"), kIcon);
  for (const auto& [name, required] : {std::pair("camera_barcode_test_button_fail", kNormalText),
                                       std::pair("camera_barcode_test_header_close", kIcon)}) {
    auto& button = *barcode->findChild<QPushButton*>(QLatin1String(name));
    for (const bool focused : {true, false}) {
      focused ? button.setFocus() : button.clearFocus();
      EXPECT_GE(ratio(*barcode, name), required) << name << focused;
    }
    hover(button);
    EXPECT_GE(ratio(*barcode, name), required) << name << " hovered";
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, LookTest, testing::ValuesIn(kThemes),
                         [](const auto& theme) { return theme.param.name; });

}  // namespace
