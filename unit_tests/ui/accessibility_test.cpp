// That everybody can work the windows: with the keyboard alone, with a screen reader, in high contrast. With
// SHOW_ACCESSIBILITY=1 it prints what assistive technology finds.

#include <QAccessible>
#include <QLabel>
#include <QMetaEnum>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string_view>
#include <tuple>

#include "standalone/host/session/session.h"
#include "standalone/host/window/main_window.h"
#include "standalone/host/window/message_dialog.h"
#include "standalone/host/window/settings_dialog.h"
#include "standalone/host/window/window_look.h"
#include "unit_tests/standalone/fake_module.h"
#include "unit_tests/ui/contrast_themes.h"
#include "unit_tests/ui/dialog_helpers.h"

namespace {

/// What breaks a rule for a reason. One that does not break it fails the walk as well.
constexpr struct AccessibilityException {
  const char *widget, *rule, *reason;
} kAccessibilityExceptions[] = {
    {"camera_barcode_test_fail_text_label", "plain text", "its form leaves it to Qt to tell rich text"},
};

/// The least of a mark that nobody overlooks, in pixels.
constexpr int kMarkOfFocus = 60;

/// Has a colour of its own for buttons.
constexpr const Theme& kTheme = kThemes[3];

/// A window of the host, in the user's colours while high contrast is on.
std::unique_ptr<QWidget> dressed(std::unique_ptr<QWidget> window) {
  if (fakePlatform().highContrast) {
    const ContrastColors colors{kTheme.window,    kTheme.windowText,    kTheme.buttonFace, kTheme.buttonText,
                                kTheme.highlight, kTheme.highlightText, kTheme.hotLight,   kTheme.grayText};
    new WindowLook(*window, [colors] { return colors; });
  }
  return window;
}

template <MessageDialog::Kind kKind>
std::unique_ptr<QWidget> hostDialog() {
  return dressed(std::make_unique<MessageDialog>(kKind, "Title", "Text", "Camera"));
}
/// The host's window after a run that failed, and the session that it shows.
class ShownSession {
 public:
  ShownSession() {
    module.capture.onRun = [](TestExecutionContext& context) {
      for (const char* message : {"CAMERA_RESULT_FAILED", "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE"})
        context.getMessageList()->add(message, 0, 0);
      return kTestFailed;
    };
    session.rescan();
    session.waitUntilIdle();
    session.start(session.allJobs().mid(0, 1));
    session.waitUntilIdle();
  }

 private:
  FakeModule module;

 public:
  Session session{module.interface(), {}, {}, nullptr};
};

std::unique_ptr<QWidget> hostMainWindow() {
  static ShownSession shown;
  return dressed(std::make_unique<MainWindow>(shown.session, MainWindow::Use::kInteractive));
}
std::unique_ptr<QWidget> hostSettings() {
  return dressed(std::make_unique<SettingsDialog>(RunSettings{3, "Ann", "S1"}, nullptr));
}
template <class Dialog>
std::unique_ptr<QWidget> modulesDialog() {
  return dialogWithPicture<Dialog>();
}
std::unique_ptr<QWidget> barcodeRetry() {
  auto dialog = dialogWithPicture<CameraBarcodeDialog>();
  dialog->ShowRetry();
  return dialog;
}

struct Window {
  const char* name;
  std::unique_ptr<QWidget> (*make)();
  /// The module's own windows let a screen reader's user step through all that they say.
  bool isModules;
};

constexpr Window kWindows[] = {{"CaptureDialog", modulesDialog<CameraDialog>, true},
                               {"BarcodeDialog", modulesDialog<CameraBarcodeDialog>, true},
                               {"BarcodeRetry", barcodeRetry, true},
                               {"HostMessage", hostDialog<MessageDialog::Kind::kMessage>, false},
                               {"HostQuestion", hostDialog<MessageDialog::Kind::kQuestion>, false},
                               {"HostMainWindow", hostMainWindow, false},
                               {"HostSettings", hostSettings, false}};

class AccessibilityTest : public testing::TestWithParam<std::tuple<Window, bool, bool>> {
 protected:
  /// One line each: window, role, name, description, and whether the keyboard gets there.
  void print(const char* title) const {
    for (const QAccessibleInterface* element : elements) {
      QTextStream(stdout) << title << " | " << QMetaEnum::fromType<QAccessible::Role>().valueToKey(element->role())
                          << " | " << element->text(QAccessible::Name) << " | "
                          << element->text(QAccessible::Description)
                          << (element->state().focusable ? " | focusable\n" : " |\n");
    }
  }

  /// With `readable` the keyboard must get to every text and picture, so that a screen reader reads it.
  void checkElements(bool readable) const {
    std::set<QString> names;
    for (const QAccessibleInterface* element : elements) {
      const bool focusable = element->state().focusable;
      const bool container = element->childCount() > 0 && !focusable;
      check(element->role() != QAccessible::NoRole && (container || element->role() != QAccessible::Client), "role",
            *element);
      const auto* const label = qobject_cast<QLabel*>(element->object());
      const bool hasText = label && !label->text().isEmpty();
      check(!hasText || label->textFormat() == Qt::PlainText, "plain text", *element);
      check(!readable || focusable || (!hasText && element->role() != QAccessible::Graphic), "is read", *element);
      if (element->object() != window.get()) {
        check(element->parent()->rect().contains(element->rect()), "inside its parent", *element);
      }
      if (!focusable) continue;
      const QString name = element->text(QAccessible::Name).remove('&').trimmed();
      check(!name.isEmpty(), "name", *element);
      check(!element->object() || names.insert(name).second, "name of its own", *element);
    }
  }

  /// Steps with `key` until the focus has been somewhere before: it must have been on all that is focusable, on nothing
  /// else, and seen at each place. `backKey` must be the way back.
  void checkFocus(int key, int backKey) const {
    std::set<const QObject*> wanted;
    for (const QAccessibleInterface* element : elements) {
      const auto* const widget = qobject_cast<QWidget*>(element->object());
      if (widget && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus)) wanted.insert(widget);
    }
    std::set<const QObject*> visited;
    // As real keys leave it: some styles show the focus only then.
    window->setAttribute(Qt::WA_KeyboardFocusChange);
    // A window may open with the focus on none of its parts.
    if (window->focusWidget() == window.get()) pressKey(*window, key);
    QWidget* focused = window->focusWidget();
    ASSERT_TRUE(focused) << "nothing has the focus at first";
    while (visited.insert(focused).second) {
      for (const int step : {backKey, key}) pressKey(*window, step);
      EXPECT_EQ(window->focusWidget(), focused) << "not the way back";
      QWidget* const left = focused;
      const QImage with = picture(*left);
      pressKey(*window, key);
      ASSERT_TRUE(focused = window->focusWidget());
      // Where there is no other place, the focus goes and comes back.
      if (focused == left) left->clearFocus();
      check(differingPixels(picture(*left), with) >= kMarkOfFocus, "focus is seen",
            *QAccessible::queryAccessibleInterface(left));
      focused->setFocus(Qt::TabFocusReason);
    }
    EXPECT_EQ(visited, wanted);
  }

  void collect(QAccessibleInterface& element) {
    elements.push_back(&element);
    for (int i = 0; i < element.childCount(); ++i) {
      QAccessibleInterface* const child = element.child(i);
      if (child && !child->state().invisible) collect(*child);
    }
  }

  /// What the window shows where `widget` is.
  QImage picture(QWidget& widget) const {
    QCoreApplication::processEvents();
    return window->grab({widget.mapTo(window.get(), QPoint()), widget.size()}).toImage();
  }

  static void check(bool holds, const char* rule, const QAccessibleInterface& element) {
    const QString name = element.object() ? element.object()->objectName() : element.text(QAccessible::Name);
    const bool excepted = std::ranges::any_of(kAccessibilityExceptions, [&](const AccessibilityException& exception) {
      return name == QLatin1String(exception.widget) && exception.rule == std::string_view(rule);
    });
    EXPECT_NE(holds, excepted) << name.toStdString() << ": " << rule << (excepted ? " needs no exception" : "");
  }

  // Outlives the window, whose icons lie in it.
  const QTemporaryDir folder;
  std::unique_ptr<QWidget> window;
  /// The window and all that is visible in it; Qt's.
  std::vector<QAccessibleInterface*> elements;
};

TEST_P(AccessibilityTest, EverythingIsNamedAndReachedAndShowsTheFocus) {
  const auto& [kind, highContrast, reader] = GetParam();
  fakePlatform() = {};
  if (highContrast) setTheme(kTheme);
  fakePlatform().narratorRuns = reader;
  fakePlatform().programData = folder.path();
  window = kind.make();
  activate(*window);
  collect(*QAccessible::queryAccessibleInterface(window.get()));
  if (std::getenv("SHOW_ACCESSIBILITY")) print(kind.name);
  checkElements(reader && kind.isModules);
  checkFocus(Qt::Key_Tab, Qt::Key_Backtab);
  if (reader && kind.isModules) checkFocus(Qt::Key_Down, Qt::Key_Up);
}

std::string caseName(const testing::TestParamInfo<AccessibilityTest::ParamType>& info) {
  const auto& [kind, highContrast, reader] = info.param;
  return std::string(kind.name) + (highContrast ? "HighContrast" : "") + (reader ? "ScreenReader" : "");
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityTest,
                         testing::Combine(testing::ValuesIn(kWindows), testing::Bool(), testing::Bool()), caseName);

}  // namespace
