#include "standalone/host/test_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/host/host_error.h"

namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;

const Aliases kDiagnostics = {{ItemId(17, 1, 0), {"Q", "quick", 2}}};
const Aliases kTests = {{ItemId(17, 1, 1), {"c", "capture", 2}}, {ItemId(17, 1, 2), {"b", "barcode", 2}}};

std::vector<std::uint32_t> select(const char* words) {
  std::vector<std::uint32_t> numbers;
  for (const ItemId& id : selectTests(words, kDiagnostics, kTests)) {
    numbers.push_back(id.test);
  }
  return numbers;
}

struct Selection {
  const char* words;
  std::vector<std::uint32_t> tests;
};

class TestSelectionTest : public testing::TestWithParam<Selection> {};

TEST_P(TestSelectionTest, FollowsTheWords) {
  EXPECT_THAT(select(GetParam().words), ElementsAreArray(GetParam().tests));
}

INSTANTIATE_TEST_SUITE_P(All, TestSelectionTest,
                         testing::Values(Selection{"", {1, 2}}, Selection{"Q", {1, 2}}, Selection{"quick", {1, 2}},
                                         Selection{"Q\"\"", {1, 2}}, Selection{"c", {1}}, Selection{"barcode", {2}},
                                         Selection{"c b", {1, 2}}, Selection{"b capture", {2, 1}},
                                         Selection{"b b", {2}}, Selection{"Qc b", {1, 2}},
                                         Selection{"Q\"c b\"", {1, 2}}, Selection{"Q c", {1}},
                                         Selection{"quickcapture", {1}}, Selection{"quick\"barcode\"", {2}},
                                         Selection{" \"b\" ", {2}}));

TEST(TestSelectionTest, OfAWordThatNothingBearsNamesTheWord) {
  for (const char* words : {"x", "Qx", "c x", "cb", "C", "captur"}) {
    try {
      select(words);
      ADD_FAILURE() << words << " was accepted";
    } catch (const HostError& error) {
      EXPECT_THAT(error.what(), HasSubstr("has no test")) << words;
    }
  }
}

TEST(TestSelectionTest, OfADiagnosticHoldsOnlyItsTests) {
  Aliases diagnostics = kDiagnostics;
  diagnostics[ItemId(17, 2, 0)] = {"L", "long", 2};
  Aliases tests = kTests;
  tests[ItemId(17, 2, 3)] = {"s", "stress", 2};
  const std::vector<ItemId> selected = selectTests("L", diagnostics, tests);
  ASSERT_EQ(selected.size(), 1U);
  EXPECT_EQ(selected[0].test, 3U);
}

}  // namespace
