#pragma once

#include <cstdint>
#include <string>

class InputRequest;
class SystemComponent;

/// Where a running test leaves its messages. The host's object.
class MessageList {
 public:
  virtual ~MessageList() = default;
  /// Appends a string key. Both words are 0 in this module.
  virtual void add(std::string key, std::uint64_t, std::uint64_t) = 0;
};

/// How a running test reports progress and involves the user. The host's object, called on the test's thread.
class ProgressReporter {
 public:
  virtual ~ProgressReporter() = default;
  /// `percent` is 0 to 100; `text` is a string key, often empty.
  virtual void report(int percent, const std::string& text) = 0;
  /// Hands a request to the host's user-interface thread. A message request returns when the user has answered; a
  /// request with a widget returns when its dialog is shown. The caller keeps the request.
  virtual void submit(InputRequest* request) = 0;
  /// Whether the host lets a test start.
  virtual bool isReady() = 0;
};

/// Events of the host that may end a test. The host's object.
class EventSource {
 public:
  virtual ~EventSource() = default;
  /// The current event; its low 8 bits count.
  virtual std::uint32_t getEvent() = 0;
};

/// What the host gives to a test run. The host owns it and everything it yields; any of the four may be null where the
/// host cannot offer it, for example on a command line.
class TestExecutionContext {
 public:
  virtual ~TestExecutionContext() = default;
  /// The component under test.
  virtual SystemComponent* getComponent() = 0;
  virtual MessageList* getMessageList() = 0;
  virtual ProgressReporter* getProgressReporter() = 0;
  /// Whether the user or the host has cancelled the run. Callable from any thread.
  virtual bool isCancelled() = 0;
  virtual EventSource* getEventSource() = 0;
};
