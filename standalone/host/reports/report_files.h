#pragma once

#include <QFile>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

#include "standalone/host/reports/html_report.h"
#include "standalone/host/session/run.h"

class Session;

/// The files that somebody wants about runs; what is empty is not wanted.
struct ReportWishes {
  /// One line for each run; "-" is standard output.
  QString jsonFile;
  /// One page about all runs.
  QString htmlFile;
  /// JUnit XML about all runs.
  QString junitFile;
  /// Where each run gets its pictures, a record and a page of its own.
  QString folder;
};

/// Writes down the runs of a session that finish from now on: lines and the files of each run at once, the files about
/// all runs at once too, but in a long row of runs only now and then and at its end. User-interface thread.
class ReportFiles : public QObject {
  Q_OBJECT

 public:
  /// Makes the files, so that one that cannot be written or is there already is told before anything runs: throws
  /// HostError then, and leaves none. The session outlives it.
  ReportFiles(const Session& session, const ReportWishes& wishes);

  /// Where the runs to come get their files; nowhere while it is empty.
  void setFolder(const QString& folder);
  bool hasFailed() const { return anyFailed; }

 signals:
  /// A report, or a picture for one, could not be written: a sentence.
  void failed(const QString& sentence);

 private:
  void add(const Run& run);
  void writeAboutAll();
  void fail(const QString& sentence);
  /// Lets the others be written when one cannot.
  void attempt(const std::function<void()>& writeOne);

  ReportWishes wishes;
  QFile json;
  HtmlReport html;
  QList<Run> runs;
  qsizetype runsWritten = 0;
  bool anyFailed = false;
};

/// Writes the pictures, the record and the page of a finished run into a folder. Returns the page's path. Throws
/// HostError.
QString saveRun(const Run& run, const QString& folderName);

/// Writes a content to standard output ("-") or into a new file. Throws HostError.
void writeReport(const QString& fileName, const QByteArray& content);

/// Makes new reports from the record of earlier runs. Throws HostError, and leaves none of its single files then.
void convertReport(const QString& recordFile, const ReportWishes& wishes);
