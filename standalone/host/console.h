#pragma once

#include <QObject>
#include <QString>

#include "standalone/host/test_runner.h"

class SystemComponent;

/// Writes a line of UTF-8 on standard output, at once.
void printLine(const QString& line);
/// The same on standard error.
void printError(const QString& line);

/// The camera's number, name and properties, names translated.
void printCamera(SystemComponent& camera);

/// Writes what a runner does on standard output as it comes. Lives on the thread that receives the signals.
class Console : public QObject {
  Q_OBJECT

 public:
  /// The cameras and tests are those of `jobs`.
  Console(const TestRunner& runner, const std::vector<TestJob>& jobs);
};
