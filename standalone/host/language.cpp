#include "standalone/host/language.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

#include "standalone/host/window/remembered.h"

namespace {

QString loaded = QStringLiteral("en");

QString choose(const QString& wanted) {
  if (!wanted.isEmpty()) return wanted;
  QString remembered = QSettings().value(QLatin1String(remembered::kLanguage)).toString();
  if (!remembered.isEmpty()) return remembered;
  // Not the language of the format of dates.
  const QStringList languages = QLocale::system().uiLanguages();
  const bool isGerman = !languages.isEmpty() && languages.front().startsWith(QLatin1String("de"));
  return isGerman ? QStringLiteral("de") : QStringLiteral("en");
}

}  // namespace

void useLanguage(const QString& wanted) {
  const QString language = choose(wanted);
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (!translator->load(QStringLiteral(":/translations/module_host_") + language)) return;
  QCoreApplication::installTranslator(translator);
  loaded = language;
}

QString languageInUse() {
  return loaded;
}
