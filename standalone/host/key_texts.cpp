#include "standalone/host/key_texts.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

QString translated(const QString& key) {
  return QCoreApplication::translate("CAMERA", key.toUtf8().constData());
}

bool isKnown(const QString& key) {
  return translated(key) != key;
}

}  // namespace

QString keyText(const QString& whole) {
  if (whole.isEmpty() || isKnown(whole)) {
    return whole.isEmpty() ? whole : translated(whole);
  }
  QStringList parts = whole.split(QStringLiteral(": "));
  if (parts.size() > 1) {
    for (QString& part : parts) {
      part = translated(part);
    }
    return parts.join(QStringLiteral(": "));
  }
  const qsizetype blank = whole.indexOf(QLatin1Char(' '));
  return blank < 0 ? whole : translated(whole.left(blank)) + whole.mid(blank);
}
