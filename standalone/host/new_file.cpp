#include "standalone/host/new_file.h"

#include <QCoreApplication>

#include "standalone/host/host_error.h"

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(NewFile)
};

QString notWritten(const QFile& file) {
  return Texts::tr("%1 could not be written: %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
}

}  // namespace

void openNewFile(QFile& file) {
  if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) return;
  if (file.exists()) {
    throw HostError(
        Texts::tr("%1 is already there, and is not overwritten.").arg(QDir::toNativeSeparators(file.fileName())));
  }
  throw HostError(notWritten(file));
}

bool writeAll(QFileDevice& file, const QByteArray& content) {
  qint64 done = 0;
  while (done < content.size()) {
    const qint64 part = file.write(content.constData() + done, content.size() - done);
    if (part <= 0) return false;
    done += part;
  }
  return file.flush();
}

void makeFolder(const QDir& folder) {
  if (folder.mkpath(QStringLiteral("."))) return;
  throw HostError(Texts::tr("The folder %1 could not be made.").arg(QDir::toNativeSeparators(folder.path())));
}

QString writeNewFile(const QDir& folder, const QString& stem, const QString& suffix, const QByteArray& content) {
  makeFolder(folder);
  QFile file;
  for (int number = 1;; ++number) {
    const QString name = number == 1 ? stem : QStringLiteral("%1_%2").arg(stem).arg(number);
    file.setFileName(folder.absoluteFilePath(name + QLatin1Char('.') + suffix));
    if (!file.exists()) break;
  }
  openNewFile(file);
  if (writeAll(file, content)) return file.fileName();
  const QString sentence = notWritten(file);
  file.remove();
  throw ReportError(sentence);
}
