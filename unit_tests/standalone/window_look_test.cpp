#include "standalone/host/window_look.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QStyle>
#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

#include "module/style_manager.h"

using vexa::utils::style_manager::StyleManager;

namespace {

class WindowLookTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.isValid());
    int red = 0;
    for (const char* name : {"Window", "WindowText", "ButtonFace", "ButtonText", "Hilight", "HilightText",
                             "HotTrackingColor", "GrayText"}) {
      colors.setValue(name, QStringLiteral("%1 2 3").arg(++red));
    }
  }
  void setFlags(const char* flags) { highContrast.setValue("Flags", flags); }
  void dress(QWidget& naked) {
    new WindowLook(naked, [this] { return readContrastColors(highContrast, colors); });
  }
  void tell(QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(&window, &event);
  }
  int red(QPalette::ColorGroup group, QPalette::ColorRole role) const {
    return text.palette().color(group, role).red();
  }

  const QTemporaryDir folder;
  QSettings highContrast{folder.filePath("contrast"), QSettings::IniFormat};
  QSettings colors{folder.filePath("colors"), QSettings::IniFormat};
  QWidget window;
  QLabel text{&window};
};

TEST_F(WindowLookTest, FollowsTheUserIntoHighContrastFromThemeToThemeAndBack) {
  setFlags("126");
  dress(window);
  window.show();
  const QPalette normal = text.palette(), application = QApplication::palette();
  ASSERT_EQ(normal.color(QPalette::WindowText), QColor("#1D2735")) << "the sheet's";

  setFlags("127");
  tell(QEvent::ThemeChange);
  ASSERT_TRUE(QTest::qWaitFor([this] { return red(QPalette::Active, QPalette::Window) == 1; }));
  EXPECT_EQ(window.styleSheet(), "");
  EXPECT_EQ(QApplication::palette(), application) << "a module's dialog has no part in it";
  EXPECT_EQ(QApplication::style()->name(), "windows") << "whose frames have the palette's colours";
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const bool isDisabled = group == QPalette::Disabled;
    for (const auto& [role, expected] : {std::pair(QPalette::Window, 1),
                                         {QPalette::Base, 1},
                                         {QPalette::WindowText, isDisabled ? 8 : 2},
                                         {QPalette::Text, isDisabled ? 8 : 2},
                                         {QPalette::Dark, 2},
                                         {QPalette::Light, isDisabled ? 1 : 2},
                                         {QPalette::Button, 3},
                                         {QPalette::ButtonText, isDisabled ? 8 : 4},
                                         {QPalette::Highlight, 5},
                                         {QPalette::HighlightedText, 6},
                                         {QPalette::Link, 7}}) {
      EXPECT_EQ(red(group, role), expected) << "group " << group << " role " << role;
    }
  }

  QWidget second;
  dress(second);
  EXPECT_EQ(second.palette(), window.palette()) << "dressed in high contrast from the start";

  colors.setValue("Hilight", "142 227 240");
  colors.remove("GrayText");
  tell(QEvent::ApplicationPaletteChange);
  EXPECT_TRUE(QTest::qWaitFor([this] { return red(QPalette::Inactive, QPalette::Highlight) == 142; }));
  EXPECT_EQ(red(QPalette::Disabled, QPalette::Text), 2) << "what the system does not tell changes nothing";

  setFlags("126");
  QWidget later;
  dress(later);  // it notices what the first was not told
  EXPECT_TRUE(QTest::qWaitFor([this] { return window.styleSheet() == StyleManager::instance().Stylesheet(); }));
  EXPECT_EQ(QApplication::style()->name(), "fusion");
  EXPECT_EQ(text.palette(), normal);
}

}  // namespace
