#include "standalone/host/session/run.h"

#include <QRegularExpression>

namespace {

constexpr int kLongestName = 60;

}  // namespace

QString resultWord(TestResult result) {
  switch (result) {
    case kTestPassed:
      return QStringLiteral("passed");
    case kTestFailed:
      return QStringLiteral("failed");
    case kTestNotPerformed:
      return QStringLiteral("not performed");
    case kTestCancelled:
      return QStringLiteral("cancelled");
    case kTestError:
      return QStringLiteral("error");
    case kTestNotSupported:
      return QStringLiteral("not supported");
    default:
      return QString::number(result);
  }
}

QString endingWord(Ending ending) {
  switch (ending) {
    case Ending::kItself:
      return QStringLiteral("itself");
    case Ending::kUser:
      return QStringLiteral("user");
    case Ending::kHost:
      return QStringLiteral("host");
    case Ending::kEvent:
      return QStringLiteral("event");
    case Ending::kFault:
      break;
  }
  return QStringLiteral("fault");
}

QString fileWord(const QString& text) {
  static const QRegularExpression others(QStringLiteral("[^\\p{L}\\p{M}\\p{N}]+"));
  const QString word = QString(text).replace(others, QStringLiteral("-")).left(kLongestName);
  return word.isEmpty() ? QStringLiteral("-") : word;
}

QString fileStem(const Run& run) {
  return QStringLiteral("%1_%2_%3_%4")
      .arg(fileWord(run.camera.name), fileWord(run.test.word),
           run.start.toString(QStringLiteral("yyyy-MM-ddTHH-mm-ss")),
           fileWord(run.result ? resultWord(*run.result) : QStringLiteral("running")));
}
