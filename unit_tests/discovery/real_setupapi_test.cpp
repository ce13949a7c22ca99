// The scanner over the machine's own SetupAPI and registry: a camera is planted there for as long as the test runs.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <windows.h>
#include <setupapi.h>

#include "discovery/narrow_text.h"
#include "discovery/win_device_interface_scanner.h"
#include "discovery/win_device_scan_filter.h"
#include "module/keys/device_classes.h"

namespace {

/// A volatile registry key, gone with the object. Keys are destroyed children first.
class PlantedKey {
 public:
  explicit PlantedKey(const std::wstring& keyPath) : path(L"SYSTEM\\CurrentControlSet\\" + keyPath) {
    DWORD disposition = 0;
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &key, &disposition),
              ERROR_SUCCESS);
    created = disposition == REG_CREATED_NEW_KEY;
  }
  ~PlantedKey() {
    RegCloseKey(key);
    if (created) RegDeleteKeyW(HKEY_LOCAL_MACHINE, path.c_str());
  }
  PlantedKey(const PlantedKey&) = delete;
  PlantedKey& operator=(const PlantedKey&) = delete;

  void setText(const wchar_t* name, const std::wstring& text, DWORD type = REG_SZ) {
    set(name, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  }
  void setNumber(const wchar_t* name, DWORD number) { set(name, REG_DWORD, &number, sizeof(number)); }

 private:
  void set(const wchar_t* name, DWORD type, const void* data, std::size_t bytes) {
    EXPECT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes)),
              ERROR_SUCCESS);
  }

  std::wstring path;
  HKEY key = nullptr;
  bool created = false;
};

TEST(RealSetupApiTest, aPlantedCameraIsFoundWithItsProperties) {
  const std::wstring setupClass = L"{ca3e7ab9-b4c3-4ae6-8251-579ef933890f}";
  const std::wstring interfaceClass = L"{e5323777-f976-4f5b-9b55-b94699c46e44}";
  const std::wstring driver = setupClass + L"\\9876";
  PlantedKey enumerator(L"Enum\\USB");
  PlantedKey hardware(L"Enum\\USB\\VID_1234&PID_5678");
  PlantedKey device(L"Enum\\USB\\VID_1234&PID_5678\\UNIT1");
  device.setText(L"ClassGUID", setupClass);
  device.setText(L"DeviceDesc", L"Description");
  device.setText(L"Mfg", L"Acme");
  device.setText(L"FriendlyName", L"K\u00e4mera");
  device.setText(L"Driver", driver);
  device.setText(L"HardwareID", std::wstring(L"USB\\First\0USB\\Second\0", 21), REG_MULTI_SZ);
  PlantedKey driverClass(L"Control\\Class\\" + setupClass);
  PlantedKey driverKey(L"Control\\Class\\" + driver);
  driverKey.setText(L"DriverVersion", L"10.0.1");
  const std::wstring name = L"USB#VID_1234&PID_5678#UNIT1#" + interfaceClass;
  PlantedKey interfaces(L"Control\\DeviceClasses\\" + interfaceClass);
  PlantedKey deviceInterface(L"Control\\DeviceClasses\\" + interfaceClass + L"\\##?#" + name);
  deviceInterface.setText(L"DeviceInstance", L"USB\\VID_1234&PID_5678\\UNIT1");
  PlantedKey reference(L"Control\\DeviceClasses\\" + interfaceClass + L"\\##?#" + name + L"\\#");
  reference.setText(L"SymbolicLink", L"\\\\?\\" + name);
  PlantedKey control(L"Control\\DeviceClasses\\" + interfaceClass + L"\\##?#" + name + L"\\#\\Control");
  control.setNumber(L"Linked", 1);

  WinDeviceInterfaceScanner scanner;
  DeviceMap found;
  ASSERT_EQ(scanner.search(WinDeviceScanFilter(CameraInterfaceClassList[0], DeviceClassList[0]), found), 0u);
  ASSERT_TRUE(found.contains("USB\\VID_1234&PID_5678\\UNIT1"));
  const DeviceEntry& entry = found["USB\\VID_1234&PID_5678\\UNIT1"];
  EXPECT_THAT(entry.interfacePaths,
              testing::ElementsAre("\\\\?\\usb#vid_1234&pid_5678#unit1#" + narrowed(interfaceClass)));
  const auto property = [&](DWORD number) {
    return takeText([&](char** text) { return scanner.getRegistryProperty(entry.deviceIndex, number, text); });
  };
  EXPECT_EQ(property(SPDRP_DEVICEDESC), "Description");
  EXPECT_EQ(property(SPDRP_MFG), "Acme");
  EXPECT_EQ(property(SPDRP_FRIENDLYNAME), "K\u00e4mera");
  EXPECT_EQ(property(SPDRP_HARDWAREID), "USB\\First");
  EXPECT_EQ(property(SPDRP_SERVICE), std::nullopt);
  EXPECT_EQ(takeText([&](char** text) { return scanner.getDriverVersion(entry.deviceIndex, text); }), "10.0.1");

  ASSERT_EQ(scanner.search(WinDeviceScanFilter(CameraInterfaceClassList[0], DeviceClassList[1]), found), 0u);
  EXPECT_FALSE(found.contains("USB\\VID_1234&PID_5678\\UNIT1")) << "of another setup class";
}

}  // namespace
