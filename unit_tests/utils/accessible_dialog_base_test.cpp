#include "utils/accessibility/accessible_dialog_base.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QtCore/qtestsupport_core.h>

#include <memory>

#include <gtest/gtest.h>

#include "module/style_manager.h"
#include "unit_tests/fakes/fake_platform.h"
#include "utils/accessibility/high_contrast_style.h"
#include "utils/accessibility/recolored_icons.h"
#include "utils/event_filters/high_contrast_event_filter.h"

using vexa::utils::accessibility::AccessibleDialogBase;
using vexa::utils::accessibility::highContrastStyleSheet;
using vexa::utils::accessibility::RecoloredIcons;
using vexa::utils::event_filters::HighContrastEventFilter;
using vexa::utils::style_manager::StyleManager;

namespace {

constexpr int kThemeChanged = 794;

class AccessibleDialogBaseTest : public testing::Test {
 protected:
  void SetUp() override { fakePlatform() = {}; }

  static QString currentHighContrast() {
    RecoloredIcons icons(nullptr);
    return highContrastStyleSheet(StyleManager::instance().Stylesheet(),
                                  HighContrastEventFilter(nullptr).ReadSystemColors(), icons);
  }
  static void changeTheme() { EXPECT_TRUE(sendNativeMessage("windows_generic_MSG", kThemeChanged)); }
};

TEST_F(AccessibleDialogBaseTest, FollowsTheThemeAndGoesBackToTheHostsStyle) {
  AccessibleDialogBase dialog(nullptr);
  EXPECT_EQ(dialog.styleSheet(), StyleManager::instance().Stylesheet());
  EXPECT_TRUE(dialog.testAttribute(Qt::WA_TranslucentBackground));

  fakePlatform().highContrast = true;
  fakePlatform().shade = 50;
  QElapsedTimer time;
  time.start();
  changeTheme();
  EXPECT_EQ(dialog.styleSheet(), StyleManager::instance().Stylesheet()) << "not at once";
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == currentHighContrast(); }));
  EXPECT_GE(time.elapsed(), 90);

  // Of two changes in a row the last one counts, although both timers run.
  changeTheme();
  fakePlatform().highContrast = false;
  changeTheme();
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == StyleManager::instance().Stylesheet(); }));
}

TEST_F(AccessibleDialogBaseTest, StartsInHighContrastWhenItIsOn) {
  fakePlatform().highContrast = true;
  AccessibleDialogBase dialog(nullptr);
  EXPECT_EQ(dialog.styleSheet(), currentHighContrast());
  fakePlatform().highContrast = false;
  changeTheme();
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == StyleManager::instance().Stylesheet(); }));
}

TEST_F(AccessibleDialogBaseTest, ADeletedDialogHearsOfNoChange) {
  auto dialog = std::make_unique<AccessibleDialogBase>(nullptr);
  changeTheme();
  dialog.reset();
  EXPECT_FALSE(sendNativeMessage("windows_generic_MSG", kThemeChanged)) << "its filter is gone";
  QTest::qWait(150);
}

TEST_F(AccessibleDialogBaseTest, AllDialogsShareOneAccessibleObject) {
  auto first = std::make_unique<AccessibleDialogBase>(nullptr);
  AccessibleDialogBase second(nullptr);
  QAccessibleInterface* const shared = first->accessibleInterface();
  EXPECT_EQ(second.accessibleInterface(), shared);
  EXPECT_EQ(shared->role(), QAccessible::Client);
  EXPECT_EQ(shared->object(), first.get());
  first.reset();
  EXPECT_EQ(second.accessibleInterface(), shared);
  EXPECT_FALSE(shared->isValid());
}

}  // namespace
