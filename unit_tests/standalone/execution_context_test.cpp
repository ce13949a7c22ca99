#include "standalone/host/execution_context.h"

#include <gtest/gtest.h>

#include "standalone/host/pictures.h"
#include "standalone/host/user_interaction.h"

namespace {

TEST(ExecutionContextTest, LacksTheReporterWithoutAUser) {
  TestReport report;
  const CommandLine options;
  ExecutionContext context(nullptr, options, nullptr, "test", report);
  EXPECT_EQ(context.getProgressReporter(), nullptr);
  EXPECT_NE(context.getMessageList(), nullptr);
  EXPECT_NE(context.getEventSource(), nullptr);
}

TEST(ExecutionContextTest, WritesDownWhatTheTestLeaves) {
  TestReport report;
  const CommandLine options;
  const Pictures noPictures{QString()};
  UserInteraction interaction(AnswerMode::Ask, noPictures);
  ExecutionContext context(nullptr, options, &interaction, "test", report);
  ASSERT_NE(context.getProgressReporter(), nullptr);
  EXPECT_TRUE(context.getProgressReporter()->isReady());
  context.getProgressReporter()->report(30, "A");
  context.getMessageList()->add("A", 0, 0);
  ASSERT_EQ(report.progress.size(), 1U);
  EXPECT_EQ(report.progress[0].percent, 30);
  EXPECT_EQ(report.progress[0].text, "A");
  EXPECT_EQ(report.messages, std::vector<std::string>{"A"});
}

TEST(ExecutionContextTest, CancelsAndRaisesEventsAtTheirTime) {
  TestReport report;
  CommandLine options;
  options.cancelAfter = 1e5;
  options.eventAfter = CommandLine::TimedEvent{1e5, 7};
  ExecutionContext later(nullptr, options, nullptr, "test", report);
  EXPECT_FALSE(later.isCancelled());
  EXPECT_EQ(later.getEventSource()->getEvent(), 0U);
  later.cancel();
  EXPECT_TRUE(later.isCancelled());

  CommandLine atOnce;
  atOnce.cancelAfter = 0;
  atOnce.eventAfter = CommandLine::TimedEvent{0, 7};
  ExecutionContext now(nullptr, atOnce, nullptr, "test", report);
  EXPECT_TRUE(now.isCancelled());
  EXPECT_EQ(now.getEventSource()->getEvent(), 7U);
}

}  // namespace
