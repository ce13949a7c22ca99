// That everybody can work the windows: with the keyboard alone, with a screen reader, in high contrast.

#include <cstdlib>
#include <memory>
#include <string>
#include <tuple>

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

struct Window {
  const char* name;
  std::unique_ptr<QWidget> (*make)();
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
  walk.checkElements(reader);
  walk.checkFocus(Qt::Key_Tab, Qt::Key_Backtab);
  if (reader) walk.checkFocus(Qt::Key_Down, Qt::Key_Up);
}

std::string caseName(const testing::TestParamInfo<AccessibilityTest::ParamType>& info) {
  const auto& [kind, highContrast, reader] = info.param;
  return std::string(kind.name) + (highContrast ? "HighContrast" : "") + (reader ? "ScreenReader" : "");
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityTest,
                         testing::Combine(testing::ValuesIn(kWindows), testing::Bool(), testing::Bool()), caseName);

}  // namespace
