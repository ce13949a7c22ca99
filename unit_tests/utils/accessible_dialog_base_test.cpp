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

QString currentHighContrast() {
  RecoloredIcons icons(nullptr);
  return highContrastStyleSheet(StyleManager::instance().Stylesheet(),
                                HighContrastEventFilter(nullptr).ReadSystemColors(), icons);
}

/// Whether somebody took the message.
bool changeTheme() {
  return sendNativeMessage("windows_generic_MSG", 794);
}

TEST(AccessibleDialogBaseTest, StartsInHighContrastAndFollowsTheUserBackToTheHostsStyle) {
  const QString normal = StyleManager::instance().Stylesheet();
  fakePlatform() = {.highContrast = true, .shade = 50};
  AccessibleDialogBase dialog(nullptr);
  const QString atFirst = dialog.styleSheet();
  EXPECT_EQ(atFirst, currentHighContrast());
  EXPECT_TRUE(dialog.testAttribute(Qt::WA_TranslucentBackground));

  fakePlatform().highContrast = false;
  QElapsedTimer time;
  time.start();
  changeTheme();
  EXPECT_EQ(dialog.styleSheet(), atFirst) << "not at once";
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == normal; }));
  EXPECT_GE(time.elapsed(), 90);

  // Of two changes in a row the last one counts, although both timers run.
  changeTheme();
  fakePlatform() = {.highContrast = true, .shade = 60};
  changeTheme();
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == currentHighContrast(); }));
}

TEST(AccessibleDialogBaseTest, ADeletedDialogHearsOfNoChange) {
  auto dialog = std::make_unique<AccessibleDialogBase>(nullptr);
  EXPECT_TRUE(changeTheme());
  dialog.reset();
  EXPECT_FALSE(changeTheme()) << "its filter is gone";
  QTest::qWait(150);
}

TEST(AccessibleDialogBaseTest, AllDialogsShareOneAccessibleObject) {
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
