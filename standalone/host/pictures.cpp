#include "standalone/host/pictures.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include "standalone/host/host_error.h"

Pictures::Pictures(const QString& folder) : directory(folder), wanted(!folder.isEmpty()) {
  if (wanted && !directory.mkpath(QStringLiteral("."))) {
    throw HostError(QStringLiteral("The folder %1 for pictures could not be made.").arg(folder));
  }
}

bool Pictures::save(const QString& name) const {
  if (!wanted) {
    return true;
  }
  QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen || !screen->grabWindow(0).save(directory.filePath(name + QStringLiteral(".png")))) {
    qWarning("The picture %s could not be saved.", qUtf8Printable(name));
    return false;
  }
  return true;
}
