#include "standalone/host/console/console.h"

#include <QDateTime>
#include <QRegularExpression>

#include "standalone/host/host_error.h"
#include "standalone/host/key_texts.h"
#include "standalone/host/run_texts.h"
#include "standalone/host/session/session.h"
#include "ui/input_request.h"

namespace {

// What a device calls itself must not work a terminal, nor look like another line.
QString plain(const QString& text) {
  static const QRegularExpression controls(QStringLiteral("\\p{Cc}"));
  return QString(text).replace(controls, QString(QChar::ReplacementCharacter));
}

void write(std::FILE* stream, const QString& line) {
  std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stream);
  std::fflush(stream);
}

}  // namespace

void printError(const QString& line) {
  write(stderr, line);
}

Console::Console(std::FILE* target, const QString& logFile) : stream(target), log(logFile) {
  if (!logFile.isEmpty() && !log.open(QIODevice::WriteOnly | QIODevice::Append))
    throw HostError(tr("The log %1 could not be written: %2").arg(logFile, log.errorString()));
}

void Console::print(const QString& line) {
  if (stream) write(stream, line);
  if (!log.isOpen()) return;
  log.write((QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + QLatin1Char(' ') + line + QLatin1Char('\n'))
                .toUtf8());
  log.flush();
}

void Console::printCamera(const Camera& camera) {
  print(tr("Camera %1: %2").arg(camera.number, plain(camera.name)));
  for (const Property& property : camera.properties)
    print(QStringLiteral("  %1: %2").arg(keyText(property.key), plain(property.value)));
}

void Console::observe(Session& session) {
  connect(&session, &Session::camerasChanged, this, [this, &session] {
    QStringList names;
    for (const Camera& camera : session.cameras()) names.append(plain(camera.name));
    print(session.scanFault().isEmpty() ? tr("Cameras: %1").arg(names.join(QStringLiteral(", ")))
                                        : session.scanFault());
  });
  connect(&session, &Session::runStarted, this, &Console::printStart);
  connect(&session, &Session::progressed, this, &Console::printProgress);
  connect(&session, &Session::requested, this, &Console::printRequest);
  connect(&session, &Session::messageAdded, this, &Console::printMessage);
  connect(&session, &Session::runFinished, this, &Console::printEnd);
}

void Console::printStart(const Run& run) {
  print(QString());
  print(tr("%1 on camera %2: %3").arg(keyText(run.test.name), run.camera.number, plain(run.camera.name)));
}

void Console::printProgress(const Run& run) {
  const Run::Progress& last = run.progress.back();
  const QString text = last.text.isEmpty() ? QString() : QStringLiteral("  ") + keyText(last.text);
  print(QStringLiteral("  %1 %").arg(last.percent, 3) + text);
}

void Console::printRequest(const Run& run) {
  const Run::Request& last = run.requests.back();
  print(QStringLiteral("  ") + (last.kind == InputRequest::kDialog
                                    ? tr("shows its dialog")
                                    : tr("asks: %1").arg(keyText(last.text).simplified())));
}

void Console::printMessage(const Run& run) {
  print(tr("  message: %1 (%2)").arg(keyText(run.messages.back()), run.messages.back()));
}

void Console::printEnd(const Run& run) {
  if (!run.remark.isEmpty()) print(QStringLiteral("  ") + run.remark);
  print(tr("  result: %1 (%2), %3 s").arg(verdictText(run)).arg(*run.result).arg(run.seconds(), 0, 'f', 1));
}
