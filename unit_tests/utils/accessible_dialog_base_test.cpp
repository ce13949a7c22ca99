#include "utils/accessibility/accessible_dialog_base.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QtCore/qtestsupport_core.h>

#include <memory>

#include <gtest/gtest.h>

#include "module/style_manager.h"
#include "unit_tests/fakes/fake_platform.h"

using vexa::utils::accessibility::AccessibleDialogBase;
using vexa::utils::style_manager::StyleManager;

namespace {

/// Whether the dialog is in the colours that the system has now.
bool isInHighContrast(const AccessibleDialogBase& dialog) {
  return dialog.styleSheet().contains(fakeSystemColor(8).name());
}

/// Whether somebody took the message.
bool changeTheme() {
  return sendNativeMessage("windows_generic_MSG", 794);
}

TEST(AccessibleDialogBaseTest, StartsInHighContrastAndFollowsTheUserBackToTheHostsStyle) {
  const QString normal = StyleManager::instance().Stylesheet();
  fakePlatform() = {.highContrast = true, .shade = 50};
  AccessibleDialogBase dialog(nullptr);
  EXPECT_TRUE(isInHighContrast(dialog));
  EXPECT_TRUE(dialog.testAttribute(Qt::WA_TranslucentBackground));

  fakePlatform().highContrast = false;
  QElapsedTimer time;
  time.start();
  changeTheme();
  EXPECT_TRUE(isInHighContrast(dialog)) << "not at once";
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.styleSheet() == normal; }));
  EXPECT_GE(time.elapsed(), 90);

  // Of two changes in a row the last one counts, although both timers run.
  changeTheme();
  fakePlatform() = {.highContrast = true, .shade = 100};
  changeTheme();
  EXPECT_TRUE(QTest::qWaitFor([&] { return isInHighContrast(dialog); }));
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
