#include "utils/platform/display_scale_table.h"

#include <QGuiApplication>
#include <QScreen>

#include <gmock/gmock.h>

#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/fake_platform.h"
#include "utils/platform/monitor_dpi.h"

using vexa::utils::platform::DisplayScaleTable;
using vexa::utils::platform::lastMonitorDpi;
using vexa::utils::platform::quantiseDpi;
using vexa::utils::platform::QueryMonitorDpi;

namespace {

class DisplayScaleTableTest : public testing::Test {
 protected:
  void SetUp() override {
    fakePlatform() = {};
    lastMonitorDpi = 0;
  }
};

TEST_F(DisplayScaleTableTest, DotsPerInchGoDownToTheNextStep) {
  constexpr std::pair<int, int> kTable[] = {{-5, 96},   {0, 96},    {119, 96},  {120, 120}, {143, 120},
                                            {144, 144}, {167, 144}, {168, 168}, {191, 168}, {192, 192},
                                            {215, 192}, {216, 216}, {239, 216}, {240, 240}, {287, 240},
                                            {288, 288}, {335, 288}, {336, 336}, {400, 336}};
  for (const auto& [dpi, step] : kTable) EXPECT_EQ(quantiseDpi(dpi), step) << dpi;
}

TEST_F(DisplayScaleTableTest, OnlyTheScaleIsCappedAndEveryScreenHasAnEntry) {
  fakePlatform().monitorDpi = 400;
  const DisplayScaleTable table;
  const auto screens = static_cast<std::size_t>(QGuiApplication::screens().size());
  EXPECT_THAT(table.scaleDpi, testing::AllOf(testing::SizeIs(screens), testing::Each(192)));
  EXPECT_THAT(table.fullDpi, testing::AllOf(testing::SizeIs(screens), testing::Each(336)));
  EXPECT_EQ(table.ScaleFactor(0), 2.0);
  EXPECT_EQ(lastMonitorDpi, 0) << "the value was taken";
  EXPECT_EQ(table.ScaleFactor(-1), 1.0);
  EXPECT_EQ(table.ScaleFactor(static_cast<int>(screens)), 1.0);
}

TEST_F(DisplayScaleTableTest, AFailedQueryFallsBackToAWaitingValueThenToQt) {
  const int logical = quantiseDpi(static_cast<int>(QGuiApplication::screens().front()->logicalDotsPerInchX()));
  EXPECT_EQ(DisplayScaleTable().fullDpi.front(), logical);
  lastMonitorDpi = 150;
  EXPECT_EQ(DisplayScaleTable().ScaleFactor(0), 1.5);
  EXPECT_EQ(DisplayScaleTable().fullDpi.front(), logical);
}

#ifdef _WIN32
TEST_F(DisplayScaleTableTest, AsksTheMonitorAtTheScreensPlaceAndReleasesTheLibrary) {
  resetFakeHostServices();
  fakePlatform().monitorDpi = 168;
  EXPECT_TRUE(QueryMonitorDpi(0));
  EXPECT_EQ(lastMonitorDpi, 168);
  EXPECT_EQ(fakePlatform().dpiAwareness, 2);
  fakePlatform().monitorDpi = 0;
  EXPECT_FALSE(QueryMonitorDpi(0));
  EXPECT_EQ(lastMonitorDpi, 168) << "kept";
  EXPECT_FALSE(QueryMonitorDpi(99));
  EXPECT_EQ(fakeHostServices().loadedNames, std::vector<std::string>(3, "shcore.dll"));
  EXPECT_EQ(fakeHostServices().librariesOpen, 0);
}
#endif

}  // namespace
