#include "standalone/host/test_runner.h"

#include <utility>

#include "discovery/system_component.h"
#include "module/test.h"
#include "standalone/host/execution_context.h"

TestRunner::TestRunner(std::vector<TestJob> testJobs, const CommandLine& commandLine, UserInteraction* userInteraction)
    : jobs(std::move(testJobs)), options(commandLine), interaction(userInteraction) {
  setObjectName("test runner");
}

void TestRunner::cancel() {
  cancelled = true;
  const std::lock_guard lock(currentMutex);
  if (current) {
    current->cancel();
  }
}

void TestRunner::run() {
  for (std::size_t i = 0; i < jobs.size() && !cancelled; ++i) {
    emit testStarted(static_cast<int>(i));
    emit testFinished(static_cast<int>(i), runJob(jobs[i]));
  }
}

TestReport TestRunner::runJob(const TestJob& job) {
  TestReport report;
  report.cameraId = job.camera->getId();
  report.cameraName = job.camera->getDescription().name;
  report.testKey = job.testKey;

  const QString pictureName = job.word + QLatin1Char('-') + QString::fromStdString(report.cameraId);
  ExecutionContext context(job.camera, options, interaction, pictureName, report);
  connect(&context, &ExecutionContext::messageAdded, this, &TestRunner::messageAdded, Qt::DirectConnection);
  connect(&context, &ExecutionContext::progressed, this, &TestRunner::progressed, Qt::DirectConnection);
  connect(&context, &ExecutionContext::requested, this, &TestRunner::requested, Qt::DirectConnection);
  const auto makeCurrent = [this](ExecutionContext* value) {
    const std::lock_guard lock(currentMutex);
    current = value;
  };
  makeCurrent(&context);
  if (cancelled) {
    context.cancel();
  }
  report.result = job.test->run(&context);
  makeCurrent(nullptr);
  report.seconds = context.elapsedSeconds();
  return report;
}
