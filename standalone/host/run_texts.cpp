#include "standalone/host/run_texts.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include "standalone/host/key_texts.h"
#include "standalone/host/session/run.h"
#include "ui/input_request.h"

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(RunTexts)
};

// By the numbers with which the tests of the module begin their steps.
struct Step {
  int percent;
  const char* text;
};
constexpr Step kSteps[] = {
    {100, QT_TRANSLATE_NOOP("RunTexts", "Ending the test…")},
    {80, QT_TRANSLATE_NOOP("RunTexts", "Waiting for your answer…")},
    {50, QT_TRANSLATE_NOOP("RunTexts", "Showing the camera's picture…")},
    {30, QT_TRANSLATE_NOOP("RunTexts", "Opening the camera…")},
    {0, QT_TRANSLATE_NOOP("RunTexts", "Preparing the test…")},
};

bool isWaitingForAnswer(const Run& run) {
  return !run.requests.isEmpty() && run.requests.back().kind != InputRequest::kDialog &&
         run.requests.back().answer == 0;
}

}  // namespace

QString verdictText(const Run& run) {
  switch (run.result.value_or(kTestError)) {
    case kTestPassed:
      return Texts::tr("Passed");
    case kTestFailed:
      return Texts::tr("Failed");
    case kTestNotPerformed:
      return Texts::tr("Not performed");
    case kTestCancelled:
      return Texts::tr("Cancelled");
    case kTestNotSupported:
      return Texts::tr("Not supported");
    default:
      return Texts::tr("Error");
  }
}

QString causeText(const Run& run) {
  if (!run.remark.isEmpty()) return run.remark;
  if (!run.messages.isEmpty()) return keyText(run.messages.front());
  if (run.result == kTestPassed) return Texts::tr("The test found nothing wrong.");
  switch (run.ending) {
    case Ending::kUser:
      return Texts::tr("You ended the test.");
    case Ending::kHost:
      return Texts::tr("The program ended the test.");
    case Ending::kEvent:
      return Texts::tr("An event of the system ended the test.");
    default:
      return run.result == kTestNotSupported ? Texts::tr("The test needs windows, and there are none.") : QString();
  }
}

QString stepText(const Run& run) {
  if (isWaitingForAnswer(run)) return Texts::tr("Waiting for your answer…");
  const int percent = run.progress.isEmpty() ? 0 : run.progress.back().percent;
  for (const Step& step : kSteps)
    if (percent >= step.percent) return Texts::tr(step.text);
  return Texts::tr("Preparing the test…");
}

QString titleText(const Run& run) {
  return QStringLiteral("%1: %2").arg(run.camera.name, keyText(run.test.name));
}

QString adviceText(const QString& message) {
  // A value or a second key may follow.
  static const QRegularExpression end(QStringLiteral("[: ]"));
  const QString key = message.section(end, 0, 0);
  const QString advice = QCoreApplication::translate("ADVICE", key.toUtf8().constData());
  return advice == key ? QString() : advice;
}

QString pictureText(const QString& name) {
  if (name == QLatin1String(picture_names::kMessage)) return Texts::tr("The message of the test");
  if (name == QLatin1String(picture_names::kQuestion)) return Texts::tr("The question of the test");
  if (name == QLatin1String(picture_names::kDialog)) return Texts::tr("The test's window a second after it opened");
  if (name == QLatin1String(picture_names::kDialogEnd)) return Texts::tr("The test's window as it closed");
  if (name == QLatin1String(picture_names::kFrame)) return Texts::tr("The last picture of the camera");
  return name;
}
