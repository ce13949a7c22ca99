#include "standalone/host/console/job_selection.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

#include "standalone/host/host_error.h"

namespace {

using Tests = QList<TestDescription>;

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(JobSelection)
};

bool bears(const TestDescription& test, const QString& word) {
  return !word.isEmpty() && (word == test.word || word == test.shortWord);
}

bool isTestWord(const Tests& tests, const QString& word) {
  return std::ranges::any_of(tests, [&](const TestDescription& test) { return bears(test, word); });
}

QString allWords(const Tests& tests) {
  QStringList words;
  for (const TestDescription& test : tests) words << QStringLiteral("%1 (%2)").arg(test.word, test.shortWord);
  return words.join(QStringLiteral(", "));
}

// Takes a diagnostic's word off the front of `text` and returns that diagnostic's tests, or all where there is none. A
// shell removes the quotation marks of Q"c b", so the word may run straight into the first test's; what is left must
// then be that word, or `capture` would be a diagnostic c.
Tests takeDiagnostic(QString& text, const Tests& tests) {
  static const QRegularExpression separator(QStringLiteral("[\\s\"]"));
  for (const TestDescription& test : tests) {
    for (const QString& word : {test.diagnosticWord, test.diagnosticShortWord}) {
      if (word.isEmpty() || !text.startsWith(word)) continue;
      const QString rest = text.mid(word.size());
      const QString next = rest.section(separator, 0, 0);
      if (!next.isEmpty() && !isTestWord(tests, next)) continue;
      text = rest;
      Tests own = tests;
      own.removeIf([&](const TestDescription& other) { return other.id.diagnostic != test.id.diagnostic; });
      return own;
    }
  }
  return tests;
}

Tests selectTests(const QString& words, const Tests& tests) {
  static const QRegularExpression separators(QStringLiteral("[\\s\"]+"));
  QString text = words.trimmed();
  Tests candidates = takeDiagnostic(text, tests);
  const QStringList testWords = text.split(separators, Qt::SkipEmptyParts);
  if (testWords.isEmpty()) return candidates;

  Tests selected;
  for (const QString& word : testWords) {
    if (!isTestWord(tests, word))
      throw HostError(Texts::tr("The module has no test \"%1\"; its tests are %2.").arg(word, allWords(tests)));
    for (const TestDescription& test : candidates) {
      const bool isNew = std::ranges::none_of(selected, [&](const auto& other) { return other.id.key == test.id.key; });
      if (isNew && bears(test, word)) selected.append(test);
    }
  }
  return selected;
}

bool isNumber(const QString& text) {
  return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString withoutLeadingZeros(const QString& number) {
  const QString stripped = QString(number).remove(QRegularExpression(QStringLiteral("^0+")));
  return stripped.isEmpty() ? QStringLiteral("0") : stripped;
}

// Null when no camera bears the word.
const Camera* namedCamera(const QList<Camera>& cameras, const QString& word) {
  const QString number = isNumber(word) ? withoutLeadingZeros(word) : QString();
  const auto found = std::ranges::find_if(
      cameras, [&](const Camera& camera) { return camera.number == number || camera.uniqueId == word; });
  return found == cameras.end() ? nullptr : &*found;
}

QList<Camera> selectCameras(const QStringList& words, const QList<Camera>& cameras) {
  if (cameras.isEmpty()) throw HostError(Texts::tr("No camera was found."));
  if (words.isEmpty()) return cameras;
  QList<Camera> selected;
  for (const QString& word : words) {
    const Camera* camera = namedCamera(cameras, word);
    if (!camera && isNumber(word))
      throw HostError(Texts::tr("There is no camera %1; the last one is %2.").arg(word, cameras.back().number));
    if (!camera)
      throw HostError(Texts::tr("\"%1\" is neither the number nor the unique identifier of a camera.").arg(word));
    const bool isNew =
        std::ranges::none_of(selected, [&](const Camera& other) { return other.identity() == camera->identity(); });
    if (isNew) selected.append(*camera);
  }
  return selected;
}

}  // namespace

QList<Job> selectJobs(const Session& session, QStringList words) {
  const QList<Camera>& cameras = session.cameras();
  Tests tests = session.catalogue().tests;
  if (!words.isEmpty() && !isNumber(words.front()) && !namedCamera(cameras, words.front()))
    tests = selectTests(words.takeFirst(), tests);
  QList<Job> jobs;
  for (const Camera& camera : selectCameras(words, cameras))
    for (const TestDescription& test : tests) jobs.append({camera, test});
  return jobs;
}
