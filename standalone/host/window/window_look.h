#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

#include "standalone/host/window/contrast_colors.h"

class QWidget;

/// Gives a window of the host its look: the style sheet of the style library or, while the user has high contrast on,
/// no sheet and the user's own colours. Follows the user's choice as long as the window lives. User-interface thread.
///
/// It is the windows that carry sheet and colours, not the application: the dialogs of modules look after themselves.
class WindowLook : public QObject {
 public:
  /// The user's colours; nothing while high contrast is off.
  using ColorSource = std::function<std::optional<ContrastColors>()>;

  /// The window owns it.
  explicit WindowLook(QWidget& dressedWindow, ColorSource colorSource = &userContrastColors);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void follow();
  void show(const std::optional<ContrastColors>& contrast);

  QWidget& window;
  ColorSource colors;
  std::optional<ContrastColors> shown;
  QTimer settled;
};
