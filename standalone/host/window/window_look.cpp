#include "standalone/host/window/window_look.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QWidget>

#include <chrono>
#include <utility>

#include "module/style_manager.h"

using namespace std::chrono_literals;
using vexa::utils::style_manager::StyleManager;

namespace {

// The system changes its settings one by one and sends a message for each of several.
constexpr auto kSettlingTime = 100ms;

void useStyle(const QString& name) {
  if (QApplication::style()->name() == name) return;
  QApplication::setStyle(name);
  // A new style brings the system's fonts for some kinds of window with it.
  QApplication::setFont(QApplication::font());
}

}  // namespace

WindowLook::WindowLook(QWidget& dressedWindow, ColorSource colorSource)
    : QObject(&dressedWindow), window(dressedWindow), colors(std::move(colorSource)) {
  settled.setSingleShot(true);
  settled.setInterval(kSettlingTime);
  connect(&settled, &QTimer::timeout, this, &WindowLook::follow);
  window.installEventFilter(this);
  show(colors());
}

// Qt tells a widget of a new theme as of a new style. While a module's dialog is open, it may keep the system's message
// of a new theme from all other windows: they notice when the user comes back to them.
bool WindowLook::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::StyleChange:
    case QEvent::ApplicationPaletteChange:
    case QEvent::WindowActivate:
      settled.start();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void WindowLook::follow() {
  if (const auto now = colors(); now != shown) show(now);
}

// The sheet goes first and comes last: while it is there, the widgets' palettes are its own. Without one, Fusion's
// frames are shades of the background, which nobody sees on black; those of the classic style have the palette's
// colours. Styles belong to the application: a module's dialog has a sheet in either look.
void WindowLook::show(const std::optional<ContrastColors>& contrast) {
  shown = contrast;
  if (contrast) {
    window.setStyleSheet(QString());
    useStyle(QStringLiteral("windows"));
    window.setPalette(contrastPalette(QApplication::palette(), *contrast));
  } else {
    window.setPalette(QPalette());
    useStyle(QStringLiteral("fusion"));
    window.setStyleSheet(StyleManager::instance().Stylesheet());
  }
}
