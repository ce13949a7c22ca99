#include "module/test_with_device_hint.h"

#include <gtest/gtest.h>

#include "module/identifiers.h"
#include "unit_tests/fakes/fake_context.h"

namespace {

// Answers everything differently from the base, and leaves a message of its own before its result.
class InnerTest : public Test {
 public:
  using Test::Test;
  bool isApplicable(SystemComponent* component) override { return component != nullptr; }
  TestResult run(TestExecutionContext* context) override {
    context->getMessageList()->add("OWN", 0, 0);
    return result;
  }
  bool isImplemented() override { return true; }
  bool hostFlagAtPlace5() override { return true; }
  HostWords hostWordsAtPlace6() override { return {{1, 2, 3}}; }
  void hostRecordAtPlace7(HostRecord record) override { received = record.lastText; }
  HostWords hostWordsAtPlace8() override { return {{4, 5, 6}}; }
  bool hostFlagAtPlace9() override { return false; }
  bool hostFlagAtPlace10() override { return false; }
  bool configure(TestSettings settings, std::uint64_t extra) override {
    received = settings["section"]["key"] + std::to_string(extra);
    return false;
  }
  void hostHookAtPlace12() override { received = "hook"; }

  TestResult result = kTestPassed;
  std::string received;
};

}  // namespace

TEST(TestWithDeviceHint, TakesTheInnerIdentifierAndForwardsEverything) {
  TestWithDeviceHint<InnerTest> test(kBarcodeTestId);
  EXPECT_EQ(test.id.key, kBarcodeTestId.key);
  EXPECT_TRUE(test.linkedIds.empty());

  FakeOtherComponent component;
  EXPECT_TRUE(test.isApplicable(&component));
  EXPECT_FALSE(test.isApplicable(nullptr));
  EXPECT_TRUE(test.isImplemented());
  EXPECT_TRUE(test.hostFlagAtPlace5());
  EXPECT_EQ(test.hostWordsAtPlace6().words[2], 3u);
  EXPECT_EQ(test.hostWordsAtPlace8().words[0], 4u);
  EXPECT_FALSE(test.hostFlagAtPlace9());
  EXPECT_FALSE(test.hostFlagAtPlace10());
  HostRecord record;
  record.lastText = "sixth";
  test.hostRecordAtPlace7(record);
  EXPECT_EQ(test.inner.received, "sixth");
  EXPECT_FALSE(test.configure({{"section", {{"key", "value"}}}}, 8));
  EXPECT_EQ(test.inner.received, "value8");
  test.hostHookAtPlace12();
  EXPECT_EQ(test.inner.received, "hook");
}

TEST(TestWithDeviceHint, OnlyAFailedTestGetsTheHint) {
  TestWithDeviceHint<InnerTest> test(kCaptureTestId);
  for (const TestResult result : {0, 1, 3, 4, 5, 6}) {
    test.inner.result = result;
    FakeContext context;
    EXPECT_EQ(test.run(&context), result);

    const std::string hint = "POSSIBLE_DEFECTIVE_COMPONENTS: CAMERA_DEVICE";
    EXPECT_EQ(context.told, result == kTestFailed ? " OWN " + hint + " 100:" + hint : " OWN");
  }
}
