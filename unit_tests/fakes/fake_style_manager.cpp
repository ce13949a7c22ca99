// The host's style library, with a style sheet that can be told from every other.

#include "module/style_manager.h"

namespace vexa::utils::style_manager {

StyleManager& StyleManager::instance() {
  static StyleManager manager;
  return manager;
}

QString StyleManager::Stylesheet() const {
  return QStringLiteral("QLabel { color: #123456; }");
}

}  // namespace vexa::utils::style_manager
