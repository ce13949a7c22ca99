// The operations of WinDeviceInterfaceScanner on DOS device names and opened devices.

#include <windows.h>

#include <QString>

#include <algorithm>

#include <gmock/gmock.h>

#include "discovery/win_device_interface_scanner.h"
#include "unit_tests/discovery/camera_fixture.h"

namespace {

using testing::ElementsAre;

/// What QueryDosDeviceW answers: zero-terminated names, and a zero.
std::wstring dosNames;
HANDLE eventOfOperation = nullptr;

class DosDeviceTest : public CameraFixture {
 protected:
  WinDeviceInterfaceScanner scanner;
};

TEST_F(DosDeviceTest, PathsAreMadeOfTheNamesThatFitAndBeginWithThePrefix) {
  const std::wstring longest = L"COM" + std::wstring(258, L'x');
  // Its rest begins with the prefix, too.
  const std::wstring tooLong = longest + L"x" + L"COM4";
  dosNames = L"COM1|" + longest + L"x|" + tooLong + L"|" + longest + L"|com2|COM3||";
  std::ranges::replace(dosNames, L'|', L'\0');
  std::vector<std::string> paths = {"kept"};
  EXPECT_EQ(scanner.getDosDevicePaths("COM", paths), 0u);
  EXPECT_THAT(paths, ElementsAre("kept", "\\\\?\\COM1", "\\\\?\\COM" + std::string(258, 'x'), "\\\\?\\COM3"));
  EXPECT_EQ(systemScript().calls("QueryDosDeviceW"), 3) << "the buffer is doubled from 261 characters on";

  systemScript().failCall("QueryDosDeviceW");
  EXPECT_EQ(scanner.getDosDevicePaths("COM", paths), 1u);
  fakeHostServices().copyFails = true;
  EXPECT_EQ(scanner.getDosDevicePaths("COM", paths), 1u);
  EXPECT_THAT(paths, testing::SizeIs(4)) << "left alone on failure";
}

TEST_F(DosDeviceTest, VolumesAreOpenedForOverlappedUseAndWaitedFor) {
  void* handle = nullptr;
  EXPECT_EQ(scanner.openDevice("\\\\.\\C:", &handle), 0u);
  EXPECT_EQ(scanner.lockVolume(handle), 0u);
  EXPECT_EQ(scanner.unlockVolume(handle), 0u);
  DWORD flags = 0;
  EXPECT_FALSE(GetHandleInformation(eventOfOperation, &flags)) << "the event is closed";
  EXPECT_THAT(systemScript().log(),
              ElementsAre("CreateFileW", "\\\\.\\C: c0000000 3 3 40000000 0", "90018", "DeviceIoControl",
                          "GetOverlappedResult", "9001c", "DeviceIoControl", "GetOverlappedResult"));

  systemScript().failCall("DeviceIoControl");
  EXPECT_EQ(scanner.lockVolume(handle), 1u);
  systemScript().failCall("GetOverlappedResult");
  EXPECT_EQ(scanner.unlockVolume(handle), 1u);
  EXPECT_EQ(scanner.closeDevice(handle), 0u);
  EXPECT_EQ(scanner.closeDevice(handle), 1u);
  systemScript().failCall("CreateFileW");
  EXPECT_EQ(scanner.openDevice("\\\\.\\C:", &handle), static_cast<std::uint32_t>(ERROR_SHARING_VIOLATION));
  EXPECT_EQ(handle, INVALID_HANDLE_VALUE);
}

}  // namespace

SUBSTITUTE_IMPORT(DWORD, QueryDosDeviceW, (LPCWSTR device, LPWSTR buffer, DWORD size)) {
  const bool fails = device || systemScript().fails("QueryDosDeviceW");
  SetLastError(fails ? ERROR_ACCESS_DENIED : ERROR_INSUFFICIENT_BUFFER);
  if (fails || size < dosNames.size()) return 0;
  return static_cast<DWORD>(dosNames.copy(buffer, size));
}

SUBSTITUTE_IMPORT(HANDLE, CreateFileW,
                  (LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                   DWORD flags, HANDLE model)) {
  if (systemScript().fails("CreateFileW")) return SetLastError(ERROR_SHARING_VIOLATION), INVALID_HANDLE_VALUE;
  systemScript().note(
      QString::asprintf("%ls %lx %lx %lx %lx %d", path, access, share, disposition, flags, security || model)
          .toStdString());
  return CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

/// Starts an operation that ends later, as a device that is opened for overlapped use does.
SUBSTITUTE_IMPORT(BOOL, DeviceIoControl,
                  (HANDLE, DWORD code, LPVOID, DWORD, LPVOID, DWORD, LPDWORD, LPOVERLAPPED operation)) {
  eventOfOperation = operation ? operation->hEvent : nullptr;
  systemScript().note(QString::number(code, 16).toStdString());
  SetLastError(systemScript().fails("DeviceIoControl") ? ERROR_ACCESS_DENIED : ERROR_IO_PENDING);
  return FALSE;
}

SUBSTITUTE_IMPORT(BOOL, GetOverlappedResult, (HANDLE, LPOVERLAPPED operation, LPDWORD, BOOL wait)) {
  DWORD flags = 0;
  const bool waits = wait && operation->hEvent == eventOfOperation && GetHandleInformation(eventOfOperation, &flags);
  return !systemScript().fails("GetOverlappedResult") && waits;
}
