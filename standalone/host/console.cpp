#include "standalone/host/console.h"

#include <cstdio>

#include "discovery/system_component.h"
#include "standalone/host/key_texts.h"

namespace {

void print(std::FILE* stream, const QString& line) {
  std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stream);
  std::fflush(stream);
}

QString title(const TestJob& job) {
  return QStringLiteral("%1 on camera %2: %3")
      .arg(keyText(job.testKey), QString::fromStdString(job.camera->getId()),
           QString::fromStdString(job.camera->getDescription().name));
}

}  // namespace

void printLine(const QString& line) {
  print(stdout, line);
}

void printError(const QString& line) {
  print(stderr, line);
}

void printCamera(SystemComponent& camera) {
  const ComponentDescription description = camera.getDescription();
  printLine(QStringLiteral("Camera %1: %2")
                .arg(QString::fromStdString(camera.getId()), QString::fromStdString(description.name)));
  for (const auto& [key, value] : description.properties) {
    printLine(QStringLiteral("  %1: %2").arg(keyText(key), QString::fromStdString(value)));
  }
}

Console::Console(const TestRunner& runner, const std::vector<TestJob>& jobs) {
  connect(&runner, &TestRunner::testStarted, this, [&jobs](int job) {
    printLine(QString());
    printLine(title(jobs[static_cast<std::size_t>(job)]));
  });
  connect(&runner, &TestRunner::progressed, this, [](int percent, const QString& text) {
    printLine(QStringLiteral("  %1 %  %2").arg(percent, 3).arg(text).trimmed().prepend(QStringLiteral("  ")));
  });
  connect(&runner, &TestRunner::requested, this,
          [](const QString& what) { printLine(QStringLiteral("  ") + what.simplified()); });
  connect(&runner, &TestRunner::messageAdded, this, [](const QString& key, const QString& text) {
    printLine(QStringLiteral("  message: %1 (%2)").arg(text, key));
  });
  connect(&runner, &TestRunner::testFinished, this, [](int, const TestReport& report) {
    printLine(QStringLiteral("  result: %1 (%2), %3 s")
                  .arg(resultWord(report.result))
                  .arg(report.result)
                  .arg(report.seconds, 0, 'f', 1));
  });
}
