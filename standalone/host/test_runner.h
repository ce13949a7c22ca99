#pragma once

#include <QString>
#include <QThread>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

#include "standalone/host/command_line.h"
#include "standalone/host/report.h"

class ExecutionContext;
class SystemComponent;
class Test;
class UserInteraction;

/// One test to run on one camera.
struct TestJob {
  SystemComponent* camera = nullptr;
  Test* test = nullptr;
  std::string testKey;
  /// The test's word on the command line.
  QString word;
};

/// Runs tests one after the other on a thread of its own.
class TestRunner : public QThread {
  Q_OBJECT

 public:
  /// `interaction` is null where there is no user interface. All but the list must outlive the thread.
  TestRunner(std::vector<TestJob> jobs, const CommandLine& options, UserInteraction* interaction);

  /// Cancels the running test and all that would follow. Any thread.
  void cancel();

 signals:
  // Sent from the runner's thread; texts are translated. `job` is an index into the list.
  void testStarted(int job);
  void messageAdded(const QString& key, const QString& text);
  void progressed(int percent, const QString& text);
  void requested(const QString& what);
  void testFinished(int job, const TestReport& report);

 private:
  void run() override;
  TestReport runJob(const TestJob& job);

  std::vector<TestJob> jobs;
  const CommandLine& options;
  UserInteraction* interaction;
  std::mutex currentMutex;
  ExecutionContext* current = nullptr;
  std::atomic<bool> cancelled = false;
};
