#include "standalone/host/execution_context.h"

#include "standalone/host/key_texts.h"
#include "standalone/host/user_interaction.h"
#include "ui/input_request.h"

ExecutionContext::ExecutionContext(SystemComponent* componentUnderTest, const CommandLine& commandLine,
                                   UserInteraction* userInteraction, const QString& pictures, TestReport& testReport)
    : component(componentUnderTest),
      options(commandLine),
      interaction(userInteraction),
      pictureName(pictures),
      record(testReport) {
  clock.start();
}

bool ExecutionContext::isCancelled() {
  return cancelled || (options.cancelAfter && elapsedSeconds() >= *options.cancelAfter);
}

void ExecutionContext::add(std::string key, std::uint64_t, std::uint64_t) {
  record.messages.push_back(key);
  emit messageAdded(QString::fromStdString(key), keyText(key));
}

void ExecutionContext::report(int percent, const std::string& text) {
  record.progress.push_back({percent, text});
  emit progressed(percent, keyText(text));
}

void ExecutionContext::submit(InputRequest* request) {
  const bool isDialog = request->widget != nullptr;
  emit requested(isDialog ? QStringLiteral("shows its dialog")
                          : QStringLiteral("asks: ") + keyText(request->secondText));
  interaction->submit(*request, *this, pictureName);
  record.requests.push_back({request->firstText, request->secondText, request->secondCode, request->answer});
}

std::uint32_t ExecutionContext::getEvent() {
  return options.eventAfter && elapsedSeconds() >= options.eventAfter->seconds ? options.eventAfter->value : 0;
}
