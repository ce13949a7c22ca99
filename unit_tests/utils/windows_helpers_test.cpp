// The helpers that ask Windows, with nothing put in its place but a look at what is asked for.

#include <windows.h>

#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "unit_tests/fakes/substitute_import.h"
#include "utils/platform/display_scale_table.h"
#include "utils/platform/folder_path.h"
#include "utils/platform/monitor_dpi.h"
#include "utils/platform/narrator.h"

using namespace vexa::utils::platform;

namespace {

int falseRequests = 0;

void setScreenReader(bool on) {
  ASSERT_TRUE(SystemParametersInfoW(SPI_SETSCREENREADER, on ? 1 : 0, nullptr, 0));
}

TEST(NarratorTest, IsSeenByItsFlagAndByItsMutex) {
  setScreenReader(false);
  EXPECT_FALSE(IsNarratorRunning());
  setScreenReader(true);
  EXPECT_TRUE(IsNarratorRunning());
  setScreenReader(false);
  EXPECT_FALSE(IsNarratorRunning());

  const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"NarratorRunning");
  ASSERT_NE(mutex, nullptr);
  EXPECT_TRUE(IsNarratorRunning());
  EXPECT_TRUE(IsNarratorRunning());
  CloseHandle(mutex);
  EXPECT_FALSE(IsNarratorRunning()) << "no handle was kept";
  EXPECT_EQ(falseRequests, 0);
}

TEST(MonitorDpiTest, FindsTheRealMonitorOfTheFirstScreen) {
  lastMonitorDpi = 0;
  ASSERT_TRUE(QueryMonitorDpi(0));
  EXPECT_EQ(lastMonitorDpi, 96);
  EXPECT_EQ(DisplayScaleTable().ScaleFactor(0), 1.0);
}

TEST(FolderPathTest, AKindHasItsBaseItsSubfolderAndItsUser) {
  const std::wstring data = std::wstring(_wgetenv(L"ProgramData")) + L"\\Quillon";
  std::array<wchar_t, MAX_PATH> buffer;
  const std::wstring current(buffer.data(), GetCurrentDirectoryW(MAX_PATH, buffer.data()));
  DWORD size = MAX_PATH;
  ASSERT_TRUE(GetUserNameW(buffer.data(), &size));
  const std::pair<int, std::wstring> paths[] = {{-1, L""},
                                                {0, data},
                                                {4, data + L"\\temp"},
                                                {6, current},
                                                {7, current + L"\\scripts"},
                                                {10, data + L"\\logs_tools\\" + buffer.data()},
                                                {11, L""}};
  for (const auto& [kind, path] : paths) EXPECT_EQ(GetFolderPath(kind), path) << kind;
}

}  // namespace

SUBSTITUTE_IMPORT(HANDLE, OpenMutexW, (DWORD access, BOOL inherit, LPCWSTR name)) {
  if (access != READ_CONTROL || inherit) ++falseRequests;
  return SYSTEM_FUNCTION("kernel32", OpenMutexW)(access, inherit, name);
}
