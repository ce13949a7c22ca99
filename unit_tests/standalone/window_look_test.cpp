#include "standalone/host/window_look.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

#include "module/style_manager.h"

using vexa::utils::style_manager::StyleManager;

namespace {

constexpr QPalette::ColorGroup kGroups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

class WindowLookTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    for (const auto& [name, value] : {std::pair("GrayText", "63 242 63"),
                                      {"HotTrackingColor", "255 255 0"},
                                      {"Hilight", "26 235 255"},
                                      {"HilightText", "0 0 1"}}) {
      colors.setValue(name, value);
    }
  }
  void setFlags(const char* flags) { highContrast.setValue("Flags", flags); }
  void expectContrast(const QColor& selection) const {
    EXPECT_TRUE(window.styleSheet().isEmpty());
    for (const QPalette::ColorGroup group : kGroups) {
      EXPECT_EQ(text.palette().color(group, QPalette::Highlight), selection) << group;
      EXPECT_EQ(text.palette().color(group, QPalette::HighlightedText), QColor(0, 0, 1)) << group;
      EXPECT_EQ(text.palette().color(group, QPalette::Link), QColor(255, 255, 0)) << group;
      const bool isDisabled = group == QPalette::Disabled;
      for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        EXPECT_EQ(text.palette().color(group, role),
                  isDisabled ? QColor(63, 242, 63) : QApplication::palette().color(group, role));
      }
    }
  }
  void waitFor(QEvent::Type change) {
    QEvent event(change);
    QApplication::sendEvent(&window, &event);
    QTest::qWait(150);
  }

  const QTemporaryDir folder;
  QSettings highContrast{folder.filePath("contrast"), QSettings::IniFormat};
  QSettings colors{folder.filePath("colors"), QSettings::IniFormat};
  QWidget window;
  QLabel text{&window};
};

TEST_F(WindowLookTest, FollowsTheUserIntoHighContrastFromThemeToThemeAndBack) {
  setFlags("126");
  new WindowLook(window, [this] { return readContrastColors(highContrast, colors); });
  window.show();
  const QColor normalText = text.palette().color(QPalette::WindowText);
  ASSERT_NE(normalText, QApplication::palette().color(QPalette::WindowText)) << "the sheet colours it";

  setFlags("127");
  waitFor(QEvent::ThemeChange);
  expectContrast(QColor(26, 235, 255));
  colors.setValue("Hilight", "142 227 240");
  waitFor(QEvent::ApplicationPaletteChange);
  expectContrast(QColor(142, 227, 240));

  setFlags("126");
  waitFor(QEvent::ThemeChange);
  EXPECT_EQ(window.styleSheet(), StyleManager::instance().Stylesheet());
  EXPECT_EQ(text.palette().color(QPalette::WindowText), normalText);
  EXPECT_EQ(text.palette().color(QPalette::Highlight), QApplication::palette().color(QPalette::Highlight));
}

TEST_F(WindowLookTest, KeepsAColorThatTheSystemDoesNotTell) {
  colors.remove("GrayText");
  setFlags("127");
  new WindowLook(window, [this] { return readContrastColors(highContrast, colors); });
  EXPECT_EQ(text.palette().color(QPalette::Disabled, QPalette::Text),
            QApplication::palette().color(QPalette::Disabled, QPalette::Text));
  EXPECT_EQ(text.palette().color(QPalette::Link), QColor(255, 255, 0));
}

}  // namespace
