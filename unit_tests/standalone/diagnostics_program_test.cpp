#include "standalone/host/diagnostics_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/host/host_error.h"

namespace {

using testing::HasSubstr;

int run(const QStringList& words, const char* module = MODULE) {
  return runDiagnostics(QStringList({"module_host", "--module", module}) + words);
}

TEST(DiagnosticsProgramTest, PrintsTheModulesHelpFirst) {
  testing::internal::CaptureStdout();
  const int code = run({"--help"});
  const std::string output = testing::internal::GetCapturedStdout();
  EXPECT_EQ(code, 0);
  EXPECT_EQ(output.rfind("Camera Module help:", 0), 0U) << output;
  EXPECT_THAT(output, HasSubstr("--pictures"));
}

TEST(DiagnosticsProgramTest, ListsNoCameraWhereThereIsNone) {
  testing::internal::CaptureStdout();
  const int code = run({"--list"});
  EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("No camera was found."));
  EXPECT_EQ(code, 0);
}

struct Mistake {
  QStringList words;
  const char* partOfSentence;
  const char* module = MODULE;
};

class SetUpMistakeTest : public testing::TestWithParam<Mistake> {};

TEST_P(SetUpMistakeTest, IsToldInASentence) {
  try {
    run(GetParam().words, GetParam().module);
    FAIL() << "accepted";
  } catch (const HostError& error) {
    EXPECT_THAT(error.what(), HasSubstr(GetParam().partOfSentence));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, SetUpMistakeTest,
    testing::Values(Mistake{{"--list"}, "nowhere.dll is not there", "nowhere.dll"},
                    Mistake{{"--list"}, "does not export GetModuleInterfaceInstance", NOT_A_MODULE},
                    Mistake{{"--list"}, "could not be loaded", __FILE__},
                    Mistake{{"-Mdisk"}, "no module \"disk\"; this host has: camera"},
                    Mistake{{"-Mcamera", "Qx"}, "no test \"Qx\""},
                    Mistake{{"-Mcamera", "c", "0"}, "No camera was found."},
                    Mistake{{"-Mcamera", "b", "--timeout", "abc"}, "\"abc\" is not a number"},
                    Mistake{{"-Mcamera", "c", "--timeout", "4294967296"}, "4294967296 is too large"},
                    Mistake{{"-Mcamera", "--ui", "--pictures", MODULE "/pictures"}, "could not be made"},
                    Mistake{{"--list", "--json", MODULE "/report.json"}, "could not be written"}));

}  // namespace
