#include "standalone/host/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/host/host_error.h"

namespace {

using testing::HasSubstr;

CommandLine parse(const QStringList& words) {
  return CommandLine::parse(QStringList("module_host") + words);
}

TEST(CommandLineTest, TakesTheSyntaxOfTheModulesHelp) {
  const CommandLine line = parse({"-Mcamera", "Qc b", "0", "02", "0"});
  EXPECT_EQ(line.module, "camera");
  EXPECT_EQ(line.tests, "Qc b");
  EXPECT_EQ(line.cameras, QStringList({"0", "2"}));
  EXPECT_EQ(line.answer, AnswerMode::Ask);
  EXPECT_FALSE(line.ui || line.list || line.help || line.timeout || line.cancelAfter || line.eventAfter);
}

TEST(CommandLineTest, TakesCamerasWithoutTests) {
  const CommandLine line = parse({"-Mcamera", "1"});
  EXPECT_TRUE(line.tests.isEmpty());
  EXPECT_EQ(line.cameras, QStringList("1"));
}

TEST(CommandLineTest, TakesEveryOption) {
  const CommandLine line =
      parse({"-Mcamera", "--ui", "--answer", "fail", "--timeout", "3x", "--json", "a.json", "--list", "--pictures=p",
             "--module", "m.dll", "--cancel-after", "1.5", "--event-after", "2:0x10"});
  EXPECT_TRUE(line.ui && line.list);
  EXPECT_EQ(line.answer, AnswerMode::Fail);
  EXPECT_EQ(line.timeout, "3x") << "the module judges it";
  EXPECT_EQ(line.jsonFile, "a.json");
  EXPECT_EQ(line.picturesFolder, "p");
  EXPECT_EQ(line.moduleFile, "m.dll");
  EXPECT_EQ(line.cancelAfter, 1.5);
  ASSERT_TRUE(line.eventAfter);
  EXPECT_EQ(line.eventAfter->seconds, 2);
  EXPECT_EQ(line.eventAfter->value, 16U);
}

struct Mistake {
  QStringList words;
  const char* partOfSentence;
};

class CommandLineMistakeTest : public testing::TestWithParam<Mistake> {};

TEST_P(CommandLineMistakeTest, IsToldInASentence) {
  try {
    parse(GetParam().words);
    FAIL() << "accepted";
  } catch (const HostError& error) {
    EXPECT_THAT(error.what(), HasSubstr(GetParam().partOfSentence));
  }
}

INSTANTIATE_TEST_SUITE_P(All, CommandLineMistakeTest,
                         testing::Values(Mistake{{}, "Nothing to do"}, Mistake{{"--ui"}, "Nothing to do"},
                                         Mistake{{"c"}, "-Mcamera"}, Mistake{{"--list", "0"}, "-Mcamera"},
                                         Mistake{{"--nothing"}, "nothing"}, Mistake{{"-M"}, "M"},
                                         Mistake{{"-Mcamera", "c", "b"}, "\"b\" is not the number"},
                                         Mistake{{"-Mcamera", "c", "1a"}, "\"1a\" is not the number"},
                                         Mistake{{"-Mcamera", "c", ""}, "\"\" is not the number"},
                                         Mistake{{"-Mcamera", "--ui", "--answer", "yes"}, "not \"yes\""},
                                         Mistake{{"-Mcamera", "--answer", "pass"}, "--ui"},
                                         Mistake{{"-Mcamera", "--pictures", "p"}, "--ui"},
                                         Mistake{{"-Mcamera", "--cancel-after", "soon"}, "\"soon\""},
                                         Mistake{{"-Mcamera", "--cancel-after", "-1"}, "\"-1\""},
                                         Mistake{{"-Mcamera", "--cancel-after", "nan"}, "\"nan\""},
                                         Mistake{{"-Mcamera", "--event-after", "1"}, "2:1"},
                                         Mistake{{"-Mcamera", "--event-after", "1:x"}, "2:1"},
                                         Mistake{{"-Mcamera", "--event-after", "1:2:3"}, "2:1"},
                                         Mistake{{"-Mcamera", "--event-after", ":1"}, "\"\""}));

}  // namespace
