// What the dialogs look like in the normal style and under Windows' contrast themes, measured from what is drawn. With
// MODULE_CAMERA_RATIOS=1 it prints what it measured.

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "unit_tests/ui/contrast_themes.h"
#include "unit_tests/ui/dialog_helpers.h"
#include "utils/platform/folder_path.h"

namespace {

constexpr double kText = 4.5;
constexpr double kTextOfContrastThemes = 7;
/// Of icons, borders and what is disabled.
constexpr double kIcon = kSeen;

constexpr std::pair<const char*, bool> kButtonsAndIfTheyHaveText[] = {{"button_fail", true}, {"header_close", false}};

std::string text(QRgb color) {
  return QColor(color).name().toStdString();
}

/// The most frequent colour of a picture, its background, and the one that differs most from it.
std::pair<QRgb, QRgb> measure(const QImage& picture) {
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

class Look : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {}; }

  template <class Dialog>
  static std::unique_ptr<Dialog> open() {
    auto dialog = dialogWithPicture<Dialog>();
    activate(*dialog);
    return dialog;
  }

  static QWidget& part(const QWidget& dialog, const char* name) {
    const QRegularExpression ownName(QStringLiteral("^(camera_[a-z]+_test_)?%1$").arg(QLatin1String(name)));
    QWidget* const widget = dialog.findChildren<QWidget*>(ownName).value(0);
    EXPECT_TRUE(widget && widget->isVisible()) << name;
    return *widget;
  }
  /// What the dialog shows in one of its parts, but for `margin`.
  static QImage picture(QWidget& dialog, const char* name, QPoint margin = {}) {
    const QWidget& shown = part(dialog, name);
    return dialog.grab({shown.mapTo(&dialog, margin), shown.size() - 2 * QSize(margin.x(), margin.y())}).toImage();
  }

  /// What is drawn in a part, without its border.
  static std::pair<QRgb, QRgb> measured(QWidget& dialog, const char* name) {
    // Round corners show what is behind a button.
    const bool isButton = qobject_cast<QPushButton*>(&part(dialog, name));
    const auto [back, fore] = measure(picture(dialog, name, isButton ? QPoint(8, 7) : QPoint(5, 3)));
    if (std::getenv("MODULE_CAMERA_RATIOS")) {
      std::printf("%7.4f  %s on %s  %s\n", contrast(back, fore), text(fore).c_str(), text(back).c_str(), name);
    }
    return {back, fore};
  }

  /// Calls `check` with the dialog and the name of every text and icon at both attempts, and whether it is a text.
  template <class Check>
  void checkTextsAndIcons(Check check) {
    const auto capture = open<CameraDialog>();
    check(*capture, "header_label", true);
    check(*capture, "header_icon", false);
    const auto barcode = open<CameraBarcodeDialog>();
    for (const char* const icon : {"step_one_current", "step_two_waiting"}) check(*barcode, icon, false);
    barcode->ShowRetry();
    QTest::qWait(20);
    for (const char* const label :
         {"header_label", "information_message", "warning_message", "warning_message_small", "fail_text_label"})
      check(*barcode, label, true);
    for (const char* const icon : {"header_icon", "warning_message_icon", "step_one_warning"})
      check(*barcode, icon, false);
  }

  static void hover(QWidget& button) {
    button.setAttribute(Qt::WA_UnderMouse);
    const QPointF middle(button.rect().center());
    QMouseEvent move(QEvent::MouseMove, middle, button.mapToGlobal(middle), Qt::NoButton, {}, {});
    QApplication::sendEvent(&button, &move);
  }

  QTemporaryDir folder;
};

class LookTest : public Look, public testing::WithParamInterface<Theme> {
 protected:
  void SetUp() override {
    setTheme(GetParam());
    fakePlatform().programData = folder.path();
  }

  /// What is drawn must be a background and what belongs to it, and differ enough.
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
    const QWidget& shown = part(dialog, name);
    const QPoint above = shown.mapTo(&dialog, QPoint(shown.width() / 2, -3));
    const QImage column = dialog.grab({above, QSize(1, 9)}).toImage();
    std::set<std::string> seen;
    double most = 0;
    for (int y = 0; y < column.height(); ++y) {
      seen.insert(text(column.pixel(0, y)));
      most = std::max(most, contrast(color, column.pixel(0, y)));
    }
    EXPECT_TRUE(seen.contains(text(color))) << name;
    EXPECT_GE(most, kIcon) << name;
  }
};

TEST_P(LookTest, TextAndIconsStandOnWhatBelongsToThem) {
  checkTextsAndIcons([](QWidget& dialog, const char* name, bool isText) {
    expectPair(dialog, name, GetParam().window, GetParam().windowText, isText ? kTextOfContrastThemes : kIcon);
  });
}

TEST_P(LookTest, ButtonsShowTheirStatesInPairsOfTheirOwn) {
  const Theme& theme = GetParam();
  const auto dialog = open<CameraBarcodeDialog>();
  for (const auto& [name, isText] : kButtonsAndIfTheyHaveText) {
    const double required = isText ? kTextOfContrastThemes : kIcon;
    QWidget& button = part(*dialog, name);
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
  for (const char* const name :
       {"border_widget", "information_message_container", "warning_container", "header_label"}) {
    expectBorder(*dialog, name, GetParam().windowText);
  }
}

TEST_P(LookTest, StepsDifferInShapeWithAndWithoutTheirIcons) {
  for (const QString& programData : {folder.path(), QString()}) {
    fakePlatform().programData = programData;
    const auto dialog = open<CameraBarcodeDialog>();
    std::vector<QImage> shapes = {picture(*dialog, "step_one_current"), picture(*dialog, "step_two_waiting")};
    dialog->ShowRetry();
    QTest::qWait(20);
    shapes.push_back(picture(*dialog, "step_one_warning"));
    // Both are in the two colours of windows: what differs is the shape.
    EXPECT_GT(differingPixels(shapes[0], shapes[1]), 40) << programData.toStdString();
    EXPECT_GT(differingPixels(shapes[0], shapes[2]), 40);
    EXPECT_GT(differingPixels(shapes[1], shapes[2]), 40);
  }
}

TEST_P(LookTest, OnlyColorsThatAThemeSetsAreUsed) {
  const QString sheet = open<CameraBarcodeDialog>()->styleSheet();
  const QList<QColor> allowed = fakePlatform().theme.values();
  static const QRegularExpression kColor(QStringLiteral("#[0-9a-f]{6}\\b"));
  int found = 0;
  for (auto match = kColor.globalMatch(sheet); match.hasNext(); ++found) {
    const QString color = match.next().captured();
    EXPECT_TRUE(allowed.contains(QColor(color))) << color.toStdString();
  }
  EXPECT_GT(found, 10);
}

// Windows tells every window of changed system colours and of a changed theme, in either order.
TEST_P(LookTest, OpenDialogsFollowTheThemeAndLeaveNothingBehind) {
  constexpr std::uint32_t kColorsChanged = 0x15, kThemeChanged = 0x31A;
  fakePlatform().highContrast = false;
  const auto capture = open<CameraDialog>();
  const auto barcode = open<CameraBarcodeDialog>();
  const QString normal = capture->styleSheet();
  const QDir temporary(
      QString::fromStdWString(vexa::utils::platform::GetFolderPath(vexa::utils::platform::kTemporaryFolder)));
  for (const auto& [first, second] : {std::pair(kColorsChanged, kThemeChanged), {kThemeChanged, kColorsChanged}}) {
    for (const bool on : {true, false}) {
      fakePlatform().highContrast = on;
      sendToWindows(first);
      sendToWindows(second);
      for (QWidget* const dialog : {static_cast<QWidget*>(capture.get()), static_cast<QWidget*>(barcode.get())}) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return (dialog->styleSheet() == normal) == !on; })) << on;
      }
      EXPECT_EQ(temporary.isEmpty(), !on);
      if (on) expectPair(*capture, "header_label", GetParam().window, GetParam().windowText, kTextOfContrastThemes);
    }
  }
}

TEST_F(Look, OfTheHostIsLegibleToo) {
  const auto check = [](QWidget& dialog, const char* name, bool isText) {
    const auto [back, fore] = measured(dialog, name);
    EXPECT_GE(contrast(back, fore), isText ? kText : kIcon) << name;
  };
  checkTextsAndIcons(check);
  const auto dialog = open<CameraBarcodeDialog>();
  for (const auto& [name, isText] : kButtonsAndIfTheyHaveText) {
    QWidget& button = part(*dialog, name);
    button.setFocus();
    check(*dialog, name, isText);
    button.clearFocus();
    check(*dialog, name, isText);
    hover(button);
    check(*dialog, name, isText);
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, LookTest, testing::ValuesIn(kThemes),
                         [](const auto& theme) { return theme.param.name; });

}  // namespace
