#pragma once

#include <QFile>
#include <QObject>
#include <QString>

#include <cstdio>

class Session;
struct Camera;
struct Run;

/// Writes a line of UTF-8 on standard error.
void printError(const QString& line);

/// Writes lines for people on a stream of the process, and with the time into a log. User-interface thread.
class Console : public QObject {
  Q_OBJECT

 public:
  /// Writes nothing on a null `stream`, and no log where `logFile` is empty. Throws HostError.
  Console(std::FILE* stream, const QString& logFile);

  void print(const QString& line);
  /// The camera's number, name and properties.
  void printCamera(const Camera& camera);
  /// From now on writes what the session's runs do.
  void observe(Session& session);

 private:
  void printStart(const Run& run);
  void printProgress(const Run& run);
  void printRequest(const Run& run);
  void printMessage(const Run& run);
  void printEnd(const Run& run);

  std::FILE* stream;
  QFile log;
};
