#pragma once

#include <string>

#include "module/keys/camera_keys.h"
#include "module/test.h"
#include "module/test_execution_context.h"

/// A test that runs another one and, when that failed, points the user to the component that may be defective.
template <class T>
class TestWithDeviceHint : public Test {
 public:
  explicit TestWithDeviceHint(const ItemId& innerId) : Test(ItemId()), inner(innerId), hint(camera_keys::kFailureHint) {
    id = inner.id;
  }

  bool isApplicable(SystemComponent* component) override { return inner.isApplicable(component); }

  [[nodiscard]] TestResult run(TestExecutionContext* context) override {
    const TestResult result = inner.run(context);
    if (result == kTestFailed) {
      if (MessageList* const messages = context->getMessageList()) messages->add(hint, 0, 0);
      if (ProgressReporter* const reporter = context->getProgressReporter()) reporter->report(100, hint);
    }
    return result;
  }

  bool isImplemented() override { return inner.isImplemented(); }
  bool hostFlagAtPlace5() override { return inner.hostFlagAtPlace5(); }
  HostWords hostWordsAtPlace6() override { return inner.hostWordsAtPlace6(); }
  void hostRecordAtPlace7(HostRecord record) override { inner.hostRecordAtPlace7(record); }
  HostWords hostWordsAtPlace8() override { return inner.hostWordsAtPlace8(); }
  bool hostFlagAtPlace9() override { return inner.hostFlagAtPlace9(); }
  bool hostFlagAtPlace10() override { return inner.hostFlagAtPlace10(); }
  [[nodiscard]] bool configure(TestSettings settings, std::uint64_t extra) override {
    return inner.configure(settings, extra);
  }
  void hostHookAtPlace12() override { inner.hostHookAtPlace12(); }

  T inner;
  std::string hint;
};
