// That everybody can work the windows: with the keyboard alone, with a screen reader, in high contrast.

#include <cstdlib>
#include <memory>
#include <string>
#include <tuple>

#include "standalone/host/main_window.h"
#include "standalone/host/message_dialog.h"
#include "standalone/host/window_look.h"
#include "unit_tests/ui/accessibility_walk.h"

namespace {

QObject hostFilter;

template <class Dialog>
std::unique_ptr<Dialog> withPicture() {
  auto dialog = std::make_unique<Dialog>(nullptr, &hostFilter);
  QImage frame(640, 480, QImage::Format_RGB32);
  frame.fill(Qt::darkCyan);
  dialog->LoadFrame(frame);
  return dialog;
}

/// In the user's colours while high contrast is on.
std::unique_ptr<QWidget> dressed(std::unique_ptr<QWidget> window) {
  if (fakePlatform().highContrast) {
    const ContrastColors colors{Qt::black, Qt::white, Qt::black, Qt::yellow, Qt::cyan, Qt::black, Qt::green, Qt::gray};
    new WindowLook(*window, [colors] { return colors; });
  }
  return window;
}

struct Window {
  const char* name;
  std::unique_ptr<QWidget> (*make)();
  /// The module's own windows let a screen reader's user step through all that they say.
  bool isModules = true;
};

constexpr Window kWindows[] = {
    {"CaptureDialog", []() -> std::unique_ptr<QWidget> { return withPicture<CameraDialog>(); }},
    {"BarcodeDialog", []() -> std::unique_ptr<QWidget> { return withPicture<CameraBarcodeDialog>(); }},
    {"BarcodeRetry",
     []() -> std::unique_ptr<QWidget> {
       auto dialog = withPicture<CameraBarcodeDialog>();
       dialog->ShowRetry();
       return dialog;
     }},
    {"HostMessage",
     [] { return dressed(std::make_unique<MessageDialog>(MessageDialog::Kind::kMessage, "Title", "Text")); }, false},
    {"HostQuestion",
     [] { return dressed(std::make_unique<MessageDialog>(MessageDialog::Kind::kQuestion, "Title", "Text")); }, false},
    {"HostMainWindow",
     [] {
       auto window = std::make_unique<MainWindow>();
       for (const char* text : {"One", "Two"}) window->showMessage(text);
       return dressed(std::move(window));
     },
     false},
};

class AccessibilityTest : public testing::TestWithParam<std::tuple<Window, bool, bool>> {};

TEST_P(AccessibilityTest, EverythingIsNamedAndReachedAndShowsTheFocus) {
  const auto& [kind, highContrast, reader] = GetParam();
  fakePlatform() = {.narratorRuns = reader, .highContrast = highContrast};
  const std::unique_ptr<QWidget> window = kind.make();
  window->show();
  QApplication::setActiveWindow(window.get());
  QTest::qWait(20);

  const AccessibilityWalk walk(*window);
  if (std::getenv("SHOW_ACCESSIBILITY")) walk.print(kind.name);
  walk.checkElements(reader && kind.isModules);
  walk.checkFocus(Qt::Key_Tab, Qt::Key_Backtab);
  if (reader && kind.isModules) walk.checkFocus(Qt::Key_Down, Qt::Key_Up);
}

std::string caseName(const testing::TestParamInfo<AccessibilityTest::ParamType>& info) {
  const auto& [kind, highContrast, reader] = info.param;
  return std::string(kind.name) + (highContrast ? "HighContrast" : "") + (reader ? "ScreenReader" : "");
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityTest,
                         testing::Combine(testing::ValuesIn(kWindows), testing::Bool(), testing::Bool()), caseName);

}  // namespace
