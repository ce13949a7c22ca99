#include "standalone/host/session/execution_context.h"

#include <QCoreApplication>

#include <exception>
#include <future>

#include "standalone/host/host_error.h"
#include "standalone/host/session/session.h"

ExecutionContext::ExecutionContext(Session& runningSession, const Interference& wanted, bool hasUserInterface)
    : session(runningSession), interference(wanted), hasUi(hasUserInterface) {
  clock.start();
}

bool ExecutionContext::isTimeOver() const {
  return interference.cancelAfter && elapsedSeconds() >= *interference.cancelAfter;
}

void ExecutionContext::add(std::string key, std::uint64_t, std::uint64_t) {
  session.post([&target = session, key = QString::fromStdString(key)] { target.addMessage(key); });
}

void ExecutionContext::report(int percent, const std::string& text) {
  session.post([&target = session, percent, key = QString::fromStdString(text)] { target.addProgress(percent, key); });
}

void ExecutionContext::submit(InputRequest* request) {
  if (!request) throw HostError(QCoreApplication::translate("ExecutionContext", "The test asked for nothing."));
  // What is thrown there is the module's own, which makes its dialog on that thread. That thread is done with it before
  // this one has it.
  std::exception_ptr thrown;
  std::promise<void> asked;
  session.post([&] {
    try {
      session.ask(*request, *this);
    } catch (...) {
      thrown = std::current_exception();
    }
    asked.set_value();
  });
  asked.get_future().wait();
  if (thrown) std::rethrow_exception(thrown);
}

std::uint32_t ExecutionContext::getEvent() {
  const auto& event = interference.eventAfter;
  return event && elapsedSeconds() >= event->seconds ? event->value : 0;
}
