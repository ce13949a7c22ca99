#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <atomic>

#include "module/test_execution_context.h"
#include "standalone/host/command_line.h"
#include "standalone/host/report.h"

class UserInteraction;

/// What one run of a test gets from this host; writes down what the test leaves. Lives on the test's thread; only
/// `isCancelled` and `cancel` may be called from any thread.
class ExecutionContext : public QObject,
                         public TestExecutionContext,
                         private MessageList,
                         private ProgressReporter,
                         private EventSource {
  Q_OBJECT

 public:
  /// `interaction` is null where there is no user interface: then there is no progress reporter either. Time runs from
  /// here. `report` gets filled and must outlive the context. `pictureName` is the stem of the names of pictures.
  ExecutionContext(SystemComponent* component, const CommandLine& options, UserInteraction* interaction,
                   const QString& pictureName, TestReport& report);

  SystemComponent* getComponent() override { return component; }
  MessageList* getMessageList() override { return this; }
  ProgressReporter* getProgressReporter() override { return !interaction ? nullptr : this; }
  bool isCancelled() override;
  EventSource* getEventSource() override { return this; }

  void cancel() { cancelled = true; }
  double elapsedSeconds() const { return static_cast<double>(clock.elapsed()) / 1000.0; }

 signals:
  /// `text` is translated.
  void messageAdded(const QString& key, const QString& text);
  void progressed(int percent, const QString& text);
  void requested(const QString& what);

 private:
  void add(std::string key, std::uint64_t, std::uint64_t) override;
  void report(int percent, const std::string& text) override;
  void submit(InputRequest* request) override;
  bool isReady() override { return true; }
  std::uint32_t getEvent() override;

  SystemComponent* component;
  const CommandLine& options;
  UserInteraction* interaction;
  QString pictureName;
  TestReport& record;
  QElapsedTimer clock;
  std::atomic<bool> cancelled = false;
};
