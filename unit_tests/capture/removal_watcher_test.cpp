#include "capture/removal_watcher.h"

#include <windows.h>
#include <dbt.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "unit_tests/capture/fake_reader.h"

TEST(RemovalWatcher, TellsOnlyWhichDeviceInterfacesGoAwayAndNothingThrownLeavesIt) {
  using Texts = std::vector<std::string>;
  Texts removed;
  RemovalWatcher watcher([&](const std::string& path) {
    removed.push_back(path);
    throw path;
  });
  ASSERT_TRUE(watcher.watch());
  broadcast(DBT_DEVICEARRIVAL, L"came");
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"port", DBT_DEVTYP_PORT);
  SendMessageW(FindWindowW(L"CameraCLASS", nullptr), WM_DEVICECHANGE, DBT_DEVICEREMOVECOMPLETE, 0);
  SendMessageW(FindWindowW(L"CameraCLASS", nullptr), WM_USER, DBT_DEVICEREMOVECOMPLETE, 0);
  EXPECT_EQ(removed, Texts());

  broadcast(DBT_DEVICEREMOVEPENDING, L"\\\\?\\USB#1");
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"K\u00e4mera \u96c6 \xD83D\xDCF7");
  broadcast(DBT_DEVICEREMOVECOMPLETE, L"half \xD83D.");
  EXPECT_EQ(removed, (Texts{"\\\\?\\USB#1", "K\u00e4mera \u96c6 \U0001F4F7", "half \uFFFD."}));
}
