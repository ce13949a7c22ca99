#pragma once

#include <QElapsedTimer>
#include <QString>

#include <atomic>
#include <cstdint>
#include <optional>

#include "module/test_execution_context.h"

class Session;

/// When this host interferes with a run, in seconds after its begin.
struct Interference {
  struct Event {
    double seconds = 0;
    std::uint32_t value = 0;
  };

  std::optional<double> cancelAfter;
  std::optional<Event> eventAfter;
};

/// What one run of a test gets from this host: passes everything on to the session. Used on the module's thread;
/// `cancel` and the operations that only ask may be called on any.
class ExecutionContext : public TestExecutionContext,
                         private MessageList,
                         private ProgressReporter,
                         private EventSource {
 public:
  /// Without a user interface there is no progress reporter either. Time runs from here.
  ExecutionContext(Session& session, const Interference& interference, bool hasUserInterface);

  void setComponent(SystemComponent& value) { component = &value; }
  void cancel() { cancelled = true; }
  /// Whether the host's own clock has cancelled the run.
  bool isTimeOver() const;

  SystemComponent* getComponent() override { return component; }
  MessageList* getMessageList() override { return this; }
  ProgressReporter* getProgressReporter() override { return hasUi ? this : nullptr; }
  bool isCancelled() override { return cancelled || isTimeOver(); }
  EventSource* getEventSource() override { return this; }

 private:
  void add(std::string key, std::uint64_t, std::uint64_t) override;
  void report(int percent, const std::string& text) override;
  void submit(InputRequest* request) override;
  bool isReady() override { return true; }
  std::uint32_t getEvent() override;

  double elapsedSeconds() const { return static_cast<double>(clock.elapsed()) / 1000.0; }

  Session& session;
  Interference interference;
  bool hasUi;
  SystemComponent* component = nullptr;
  QElapsedTimer clock;
  std::atomic<bool> cancelled = false;
};
