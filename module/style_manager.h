#pragma once

#include <QString>

namespace vexa::utils::style_manager {

/// The host's common look. The class lives in the host's style library.
class StyleManager {
 public:
  static StyleManager& instance();
  /// The style sheet of every dialog.
  QString Stylesheet() const;
};

}  // namespace vexa::utils::style_manager
