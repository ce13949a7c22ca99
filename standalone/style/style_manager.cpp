#include "module/style_manager.h"

#include <QFile>

namespace vexa::utils::style_manager {

StyleManager& StyleManager::instance() {
  static StyleManager manager;
  return manager;
}

QString StyleManager::Stylesheet() const {
  static const QString sheet = [] {
    QFile file(QStringLiteral(":/host_style/host.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }();
  return sheet;
}

}  // namespace vexa::utils::style_manager
