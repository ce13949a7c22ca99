#include "standalone/host/window/window_look.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QStyle>
#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

#include <string>

#include <gtest/gtest.h>

#include "module/style_manager.h"

using vexa::utils::style_manager::StyleManager;

namespace {

/// The red parts of a widget's colours, which the test numbers from 1.
std::string reds(const QWidget& widget, QPalette::ColorGroup group) {
  std::string digits;
  for (const auto role :
       {QPalette::Window, QPalette::Base, QPalette::WindowText, QPalette::Text, QPalette::Dark, QPalette::Light,
        QPalette::Button, QPalette::ButtonText, QPalette::Highlight, QPalette::HighlightedText, QPalette::Link}) {
    digits += std::to_string(widget.palette().color(group, role).red());
  }
  return digits;
}

TEST(WindowLookTest, FollowsTheUserIntoHighContrastFromThemeToThemeAndBack) {
  const QTemporaryDir folder;
  QSettings highContrast(folder.filePath("contrast"), QSettings::IniFormat);
  QSettings colors(folder.filePath("colors"), QSettings::IniFormat);
  int red = 0;
  for (const char* name :
       {"Window", "WindowText", "ButtonFace", "ButtonText", "Hilight", "HilightText", "HotTrackingColor", "GrayText"}) {
    colors.setValue(name, QStringLiteral("%1 2 3").arg(++red));
  }
  int asked = 0;
  const auto source = [&] { return ++asked, readContrastColors(highContrast, colors); };
  // Until what a change of the look itself sets off is over.
  const auto rest = [] { QTest::qWait(300); };
  QWidget window;
  QLabel text(&window);
  const auto tell = [&](QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(&window, &event);
  };

  highContrast.setValue("Flags", "126");
  new WindowLook(window, source);
  window.show();
  const QPalette normal = text.palette();
  const QPalette application = QApplication::palette();
  ASSERT_EQ(normal.color(QPalette::WindowText), QColor("#1D2735")) << "the sheet's";
  rest();

  highContrast.setValue("Flags", "127");
  tell(QEvent::ThemeChange);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.styleSheet().isEmpty(); }));
  EXPECT_EQ(QApplication::style()->name(), "windows") << "whose frames have the palette's colours";
  EXPECT_EQ(reds(text, QPalette::Active), "11222234567");
  EXPECT_EQ(reds(text, QPalette::Inactive), "11222234567");
  EXPECT_EQ(reds(text, QPalette::Disabled), "11882138567");
  EXPECT_EQ(QApplication::palette(), application) << "a module's dialog has no part in it";
  rest();

  colors.setValue("Hilight", "9 2 3");
  colors.remove("GrayText");
  tell(QEvent::ApplicationPaletteChange);
  EXPECT_TRUE(QTest::qWaitFor([&] { return reds(text, QPalette::Disabled) == "11222134967"; }));
  rest();

  highContrast.setValue("Flags", "126");
  QWidget later;
  new WindowLook(later, source);  // notices what the first was not told
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.styleSheet() == StyleManager::instance().Stylesheet(); }));
  EXPECT_EQ(QApplication::style()->name(), "fusion");
  EXPECT_EQ(text.palette(), normal);
  EXPECT_EQ(window.palette(), later.palette());
  rest();
  const int before = asked;
  rest();
  EXPECT_EQ(asked, before);
}

}  // namespace
