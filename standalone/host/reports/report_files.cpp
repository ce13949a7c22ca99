#include "standalone/host/reports/report_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

#include "standalone/host/host_error.h"
#include "standalone/host/language.h"
#include "standalone/host/new_file.h"
#include "standalone/host/reports/html_report.h"
#include "standalone/host/reports/junit_report.h"
#include "standalone/host/reports/run_json.h"
#include "standalone/host/session/session.h"

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ReportFiles)
};

bool isStandardOutput(const QString& fileName) {
  return fileName == QLatin1String("-");
}

QString notWritten(const QFileDevice& file) {
  const QString name =
      file.fileName().isEmpty() ? Texts::tr("Standard output") : QDir::toNativeSeparators(file.fileName());
  return Texts::tr("%1 could not be written: %2").arg(name, file.errorString());
}

// Files that were made just now, which go again with it unless they are kept.
class NewFiles {
 public:
  NewFiles() = default;
  ~NewFiles() {
    for (const QString& name : names) QFile::remove(name);
  }
  NewFiles(const NewFiles&) = delete;
  NewFiles& operator=(const NewFiles&) = delete;

  void make(const QString& name) {
    if (name.isEmpty() || isStandardOutput(name)) return;
    QFile file(name);
    openNewFile(file);
    names.append(name);
  }
  void makeAll(const ReportWishes& wishes) {
    make(wishes.jsonFile);
    make(wishes.htmlFile);
    make(wishes.junitFile);
  }
  void keep() { names.clear(); }

 private:
  QList<QString> names;
};

// Opens standard output, or goes on with a file that is there.
void openForLines(QFile& file, const QString& name) {
  if (!isStandardOutput(name)) file.setFileName(name);
  const bool isOpen = isStandardOutput(name) ? file.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered)
                                             : file.open(QIODevice::Append | QIODevice::Unbuffered);
  if (!isOpen) throw HostError(notWritten(file));
}

void append(QFile& file, const QByteArray& line) {
  const qint64 size = file.size();
  if (writeAll(file, line)) return;
  const QString sentence = notWritten(file);
  // Half a line would spoil the next one.
  if (!file.fileName().isEmpty()) file.resize(size);
  throw ReportError(sentence);
}

void appendRun(QFile& file, const Run& run) {
  const QDir folder = QFileInfo(file.fileName()).absoluteDir();
  append(file, jsonLine(run, file.fileName().isEmpty() ? nullptr : &folder));
}

// What the file held before stays until all of the new content is on the disk.
void replace(const QString& name, const QByteArray& content) {
  QSaveFile file(name);
  if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, content) && file.commit()) return;
  throw ReportError(notWritten(file));
}

}  // namespace

ReportFiles::ReportFiles(const Session& session, const ReportWishes& reportWishes)
    : wishes(reportWishes), html(languageInUse()) {
  if (!wishes.folder.isEmpty()) makeFolder(QDir(wishes.folder));
  NewFiles files;
  files.makeAll(wishes);
  // Whole from the beginning, for somebody who looks at them before the first run has finished.
  if (!wishes.htmlFile.isEmpty()) replace(wishes.htmlFile, html.page());
  if (!wishes.junitFile.isEmpty()) replace(wishes.junitFile, junitReport(runs));
  if (!wishes.jsonFile.isEmpty()) openForLines(json, wishes.jsonFile);
  files.keep();
  connect(&session, &Session::runFinished, this, &ReportFiles::add);
  connect(&session, &Session::reportFailed, this, &ReportFiles::fail);
  connect(&session, &Session::idle, this, &ReportFiles::writeAboutAll);
}

void ReportFiles::setFolder(const QString& folder) {
  wishes.folder = folder;
}

void ReportFiles::add(const Run& run) {
  if (!wishes.junitFile.isEmpty() || !wishes.htmlFile.isEmpty()) runs.append(run);
  if (!wishes.htmlFile.isEmpty()) html.add(run);
  if (json.isOpen()) attempt([&] { appendRun(json, run); });
  if (!wishes.folder.isEmpty()) attempt([&] { saveRun(run, wishes.folder); });
  // In a long row the writing would take longer than the runs: there it waits until a tenth of them is new.
  if ((runs.size() - runsWritten) * 10 >= runs.size()) writeAboutAll();
}

void ReportFiles::writeAboutAll() {
  if (runsWritten == runs.size()) return;
  runsWritten = runs.size();
  if (!wishes.htmlFile.isEmpty()) attempt([&] { replace(wishes.htmlFile, html.page()); });
  if (!wishes.junitFile.isEmpty()) attempt([&] { replace(wishes.junitFile, junitReport(runs)); });
}

void ReportFiles::attempt(const std::function<void()>& writeOne) {
  try {
    writeOne();
  } catch (const HostError& error) {
    fail(error.sentence());
  }
}

void ReportFiles::fail(const QString& sentence) {
  anyFailed = true;
  emit failed(sentence);
}

QString saveRun(const Run& run, const QString& folderName) {
  const QDir folder(folderName);
  const QString stem = fileStem(run);
  Run saved = run;
  for (Run::Picture& picture : saved.pictures) {
    if (picture.png.isEmpty() || QFileInfo(picture.file).absoluteDir() == folder) continue;
    picture.file =
        writeNewFile(folder, stem + QLatin1Char('_') + fileWord(picture.name), QStringLiteral("png"), picture.png);
  }
  writeNewFile(folder, stem, QStringLiteral("json"), jsonLine(saved, &folder));
  return writeNewFile(folder, stem, QStringLiteral("html"), htmlReport({saved}, languageInUse()));
}

void writeReport(const QString& fileName, const QByteArray& content) {
  NewFiles files;
  files.make(fileName);
  QFile file;
  openForLines(file, fileName);
  append(file, content);
  files.keep();
}

void convertReport(const QString& recordFile, const ReportWishes& wishes) {
  const QList<Run> runs = readRuns(recordFile);
  NewFiles files;
  files.makeAll(wishes);
  if (!wishes.htmlFile.isEmpty()) replace(wishes.htmlFile, htmlReport(runs, languageInUse()));
  if (!wishes.junitFile.isEmpty()) replace(wishes.junitFile, junitReport(runs));
  if (!wishes.jsonFile.isEmpty()) {
    QFile json;
    openForLines(json, wishes.jsonFile);
    for (const Run& run : runs) appendRun(json, run);
  }
  files.keep();
  if (wishes.folder.isEmpty()) return;
  for (const Run& run : runs) saveRun(run, wishes.folder);
}
