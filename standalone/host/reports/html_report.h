#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include "standalone/host/session/run.h"

/// A page about runs for people, on the screen or on paper, which needs no other file and runs no script: verdict and
/// cause, camera, test, answers and pictures of each. A run is worked on once, however often the page is asked for.
class HtmlReport {
 public:
  /// The language of the texts: "en", "de".
  explicit HtmlReport(const QString& textLanguage) : language(textLanguage) {}

  /// Adds a finished run.
  void add(const Run& run);
  QByteArray page() const;

 private:
  QString language;
  int size = 0;
  QMap<TestResult, int> counts;
  QString rows;
  QByteArray sections;
};

/// The page about these runs.
QByteArray htmlReport(const QList<Run>& runs, const QString& language);
