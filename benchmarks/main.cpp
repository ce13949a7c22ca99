// What the module's paths cost beside the least that the system and Qt take for the same, each row within one run. See
// docs/performance.md.

#include <QApplication>
#include <QFile>
#include <QStringList>

#include <chrono>
#include <cstdio>
#include <exception>
#include <thread>

#include "benchmarks/comparison.h"
#include "benchmarks/rows.h"

namespace {

enum ExitCode { kAllWithin = 0, kSomeAbove = 1, kNotMeasured = 2 };

constexpr char kUsage[] =
    "Usage: module_benchmark [--only WORD] [--json FILE]\n"
    "  --only WORD  measures only what has WORD in its name\n"
    "  --json FILE  writes the figures of every round to FILE\n"
    "Ends with 0 when all is within its bound, 1 when something is not, 2 when nothing could be measured.\n";

int refuse(const QString& sentence) {
  std::fprintf(stderr, "error: %s\n", sentence.toUtf8().constData());
  return kNotMeasured;
}

struct Arguments {
  QString only;
  QString jsonFile;
  bool help = false;
  QString error;
};

Arguments readArguments(const QStringList& given) {
  Arguments arguments;
  for (qsizetype i = 1; i < given.size(); ++i) {
    const QString& name = given[i];
    if (name == QLatin1String("--help")) {
      arguments.help = true;
      continue;
    }
    QString* const value = name == QLatin1String("--only")   ? &arguments.only
                           : name == QLatin1String("--json") ? &arguments.jsonFile
                                                             : nullptr;
    if (!value) {
      arguments.error =
          QStringLiteral("\"%1\" is not understood; allowed are --only WORD, --json FILE and --help").arg(name);
      return arguments;
    }
    *value = given.value(++i);
    if (value->isEmpty()) arguments.error = name + QStringLiteral(" needs a value");
  }
  return arguments;
}

int measure(Comparison& comparison, const QString& only) try {
  for (const auto topic :
       {compareFrames, compareDialogs, compareCaptures, compareDiscovery, compareModule, compareTestRuns}) {
    topic(comparison);
  }
  if (comparison.isEmpty()) return refuse(QStringLiteral("nothing that is measured has \"%1\" in its name").arg(only));
  return comparison.isAllWithin() ? kAllWithin : kSomeAbove;
} catch (const std::exception& failure) {
  return refuse(QString::fromUtf8(failure.what()));
}

}  // namespace

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const Arguments arguments = readArguments(QCoreApplication::arguments());
  if (!arguments.error.isEmpty()) return refuse(arguments.error);
  if (arguments.help) {
    std::fputs(kUsage, stdout);
    return kAllWithin;
  }
  QFile json(arguments.jsonFile);
  if (!arguments.jsonFile.isEmpty() && !json.open(QIODevice::WriteOnly)) {
    return refuse(QStringLiteral("%1 cannot be written: %2").arg(json.fileName(), json.errorString()));
  }

  Comparison comparison(arguments.only);
  int status = kNotMeasured;
  // The thread does not end before the process: mingw frees a thread's variables before it calls their destructors, and
  // Qt has some.
  std::thread([&] {
    status = measure(comparison, arguments.only);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
  }).detach();
  QApplication::exec();

  const QByteArray figures = comparison.toJson();
  if (json.isOpen() && (json.write(figures) != figures.size() || !json.flush())) {
    return refuse(QStringLiteral("%1 could not be written: %2").arg(json.fileName(), json.errorString()));
  }
  return status;
}
