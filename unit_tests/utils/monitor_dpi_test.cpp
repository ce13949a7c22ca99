#include "utils/platform/monitor_dpi.h"

#include <QGuiApplication>
#include <QLibrary>
#include <QScreen>

#include <windows.h>

#include <bit>
#include <vector>

#include <gtest/gtest.h>

#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/fake_platform.h"

using vexa::utils::platform::lastMonitorDpi;
using vexa::utils::platform::QueryMonitorDpi;

namespace {

struct FakeMonitor {
  HMONITOR handle;
  LONG left;
  LONG top;
};
std::vector<FakeMonitor> monitors;
std::vector<HMONITOR> asked;

BOOL WINAPI enumerate(HDC, const RECT*, MONITORENUMPROC found, LPARAM argument) {
  for (const FakeMonitor& monitor : monitors) found(monitor.handle, nullptr, nullptr, argument);
  return TRUE;
}

BOOL WINAPI describe(HMONITOR handle, MONITORINFO* info) {
  EXPECT_EQ(info->cbSize, 40U);
  asked.push_back(handle);
  for (const FakeMonitor& monitor : monitors) {
    if (monitor.handle == handle) info->rcMonitor = {monitor.left, monitor.top, monitor.left + 640, monitor.top + 480};
  }
  return TRUE;
}

HMONITOR monitorHandle(std::uintptr_t number) {
  return std::bit_cast<HMONITOR>(number);
}

class MonitorDpiTest : public testing::Test {
 protected:
  void SetUp() override {
    resetFakeHostServices();
    fakePlatform() = {.monitorDpi = 144};
    lastMonitorDpi = 0;
    monitors.clear();
    asked.clear();
  }
  void TearDown() override {
    EXPECT_EQ(fakeHostServices().loadedNames, std::vector<std::string>{"shcore.dll"});
    EXPECT_EQ(fakeHostServices().librariesOpen, 0);
  }

  const QPoint screen = QGuiApplication::screens().front()->geometry().topLeft();
};

TEST_F(MonitorDpiTest, AsksTheMonitorThatLiesWhereTheScreenLies) {
  monitors = {{monitorHandle(1), screen.x() + 640, screen.y()},
              {monitorHandle(2), screen.x(), screen.y() + 480},
              {monitorHandle(3), screen.x(), screen.y()},
              {monitorHandle(4), screen.x(), screen.y()}};
  EXPECT_TRUE(QueryMonitorDpi(0));
  EXPECT_EQ(lastMonitorDpi, 144);
  EXPECT_EQ(asked.back(), monitorHandle(3)) << "the first that matches";
}

TEST_F(MonitorDpiTest, AFailureLeavesTheWaitingValue) {
  lastMonitorDpi = 111;
  monitors = {{monitorHandle(1), screen.x(), screen.y()}};
  fakePlatform().monitorDpi = 0;
  EXPECT_FALSE(QueryMonitorDpi(0));
  EXPECT_EQ(lastMonitorDpi, 111);
}

class MonitorDpiWithoutMatchTest : public MonitorDpiTest,
                                   public testing::WithParamInterface<std::pair<int, std::vector<FakeMonitor>>> {};

TEST_P(MonitorDpiWithoutMatchTest, Fails) {
  monitors = GetParam().second;
  EXPECT_FALSE(QueryMonitorDpi(GetParam().first));
  EXPECT_EQ(lastMonitorDpi, 0);
}

INSTANTIATE_TEST_SUITE_P(All, MonitorDpiWithoutMatchTest,
                         testing::Values(std::pair(0, std::vector<FakeMonitor>{}),
                                         std::pair(0, std::vector<FakeMonitor>{{monitorHandle(1), -7, -9}}),
                                         std::pair(0, std::vector<FakeMonitor>{{nullptr, 0, 0}}),
                                         std::pair(99, std::vector<FakeMonitor>{{monitorHandle(1), 0, 0}}),
                                         std::pair(-1, std::vector<FakeMonitor>{{monitorHandle(1), 0, 0}})));

}  // namespace

// Only this program's own calls come here: Qt keeps the real functions.
extern "C" {
decltype(&EnumDisplayMonitors) __imp_EnumDisplayMonitors = &enumerate;
decltype(&GetMonitorInfoW) __imp_GetMonitorInfoW = &describe;
}
