#include "discovery/win_device_interface_scanner.h"

#include <tuple>

#include <gmock/gmock.h>

#include "discovery/win_device_scan_filter.h"
#include "unit_tests/discovery/camera_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr DEVPROPKEY kNameKey = {{0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}}, 10};

class WinDeviceInterfaceScannerTest : public CameraFixture {
 protected:
  std::uint32_t search(const GUID& interfaceClass, const GUID& deviceClass) {
    return scanner.search(WinDeviceScanFilter(interfaceClass, deviceClass), found);
  }
  std::optional<std::string> property(std::uint32_t index, std::uint32_t number) {
    return takeText([&](char** text) { return scanner.getRegistryProperty(index, number, text); });
  }
  std::optional<std::string> interfaceName(const std::string& path) {
    return takeText([&](char** text) { return scanner.getInterfaceProperty(path, kNameKey, text); });
  }

  WinDeviceInterfaceScanner scanner;
  DeviceMap found;
};

TEST_F(WinDeviceInterfaceScannerTest, KeepsTheWantedDeviceClassWithAllInterfacesInOrder) {
  plugIn(L"M", kMediaSetupClass, L"\\\\?\\m");
  plugIn(L"C", kCameraSetupClass, L"\\\\?\\z")
      .interfaces.push_back({kVideoCameraInterface, L"\\\\?\\a", L"インターフェース名"});

  EXPECT_EQ(search(kVideoCameraInterface, kCameraSetupClass), 0u);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found["C"].deviceIndex, 0u);
  EXPECT_THAT(found["C"].interfacePaths, ElementsAre("\\\\?\\z", "\\\\?\\a"));
  EXPECT_EQ(scanner.getDeviceCount(), 1u);
  EXPECT_EQ(interfaceName("\\\\?\\a"), "インターフェース名");
  EXPECT_THAT(scriptedSetupApi().interfacePropertySizes, ElementsAre(40u)) << "twice as large, deliberately";
  systemScript().failCall("SetupDiGetDeviceInterfacePropertyW", 2);
  EXPECT_EQ(interfaceName("\\\\?\\a"), "") << "only the conversion decides";
  EXPECT_EQ(interfaceName("\\\\?\\z"), std::nullopt);
  EXPECT_EQ(interfaceName("\\\\?\\m"), std::nullopt);

  EXPECT_EQ(search(kVideoCameraInterface, GUID{}), 0u);
  EXPECT_EQ(found.size(), 2u);
  EXPECT_EQ(search(kCaptureInterface, GUID{}), 0u);
  EXPECT_THAT(found, IsEmpty());
  EXPECT_EQ(interfaceName("\\\\?\\a"), std::nullopt) << "only the last search counts";
  EXPECT_EQ(systemScript().outstanding().at("device information set"), 1);
}

TEST_F(WinDeviceInterfaceScannerTest, AnyInterfaceClassOpensTheSetOfAllClasses) {
  plugIn(L"C", kCameraSetupClass, L"\\\\?\\c");
  EXPECT_EQ(search(GUID{}, GUID{}), 0u);
  EXPECT_EQ(scanner.getDeviceCount(), 1u);
  EXPECT_THAT(scriptedSetupApi().openings, ElementsAre(testing::Pair(GUID{}, 6u)));
}

TEST_F(WinDeviceInterfaceScannerTest, AFilterOfAnotherKindFindsNothing) {
  class OtherFilter : public DeviceScanFilter {};
  plugIn(L"C", kCameraSetupClass, L"\\\\?\\c");
  EXPECT_EQ(search(kVideoCameraInterface, GUID{}), 0u);
  EXPECT_EQ(scanner.search(OtherFilter(), found), 1u);
  EXPECT_THAT(found, IsEmpty());
}

TEST_F(WinDeviceInterfaceScannerTest, SkipsWhatCannotBeReadAndGoesOn) {
  plugIn(L"A", kCameraSetupClass, L"\\\\?\\a");
  plugIn(L"B", kCameraSetupClass, L"\\\\?\\b1").interfaces.push_back({kVideoCameraInterface, L"\\\\?\\b2", {}});
  systemScript().failCall("SetupDiGetDeviceInstanceIdW");
  systemScript().failCall("SetupDiGetDeviceInterfaceDetailW");
  EXPECT_EQ(search(kVideoCameraInterface, GUID{}), 0u);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found["B"].deviceIndex, 1u);
  EXPECT_THAT(found["B"].interfacePaths, ElementsAre("\\\\?\\b2"));

  EXPECT_EQ(scanner.getInterfacePaths(0, found), 0u);
  EXPECT_EQ(found.size(), 1u) << "replaced";
  EXPECT_THAT(found["A"].interfacePaths, ElementsAre("\\\\?\\a"));
  EXPECT_EQ(scanner.getInterfacePaths(2, found), 1u);
  EXPECT_THAT(found, IsEmpty());
}

TEST_F(WinDeviceInterfaceScannerTest, ReadsRegistryProperties) {
  ScriptedDevice& device = plugIn(L"A", kCameraSetupClass, L"\\\\?\\a");
  device.setText(SPDRP_DEVICEDESC, L"K\u00e4mera 集成摄像头 \U0001F4F7 \xD800");
  device.setText(SPDRP_DRIVER, L"k");
  device.properties[SPDRP_SERVICE] = L"";
  device.properties[SPDRP_HARDWAREID] = L"not terminated";
  setDriverVersion(L"k", L"1.2");
  EXPECT_EQ(search(kVideoCameraInterface, GUID{}), 0u);

  EXPECT_EQ(property(0, SPDRP_DEVICEDESC), "K\u00e4mera 集成摄像头 \U0001F4F7 \uFFFD");
  EXPECT_EQ(property(0, SPDRP_HARDWAREID), "not terminated");
  EXPECT_EQ(property(0, SPDRP_SERVICE), std::nullopt) << "empty is absent, deliberately";
  EXPECT_EQ(property(0, SPDRP_CLASS), std::nullopt);
  EXPECT_EQ(property(1, SPDRP_MFG), std::nullopt);
  EXPECT_EQ(takeText([this](char** text) { return scanner.getDriverVersion(0, text); }), "1.2");
  EXPECT_EQ(scanner.getScannerKind(), 4u);
}

TEST_F(WinDeviceInterfaceScannerTest, FindsParentsByTheirIdsAmongTheFiltersDevices) {
  plugIn(L"USB\\HUB\\1", kImageSetupClass, L"\\\\?\\usb#hub", kCaptureInterface);
  plugIn(L"USB\\CAM\\1", kCameraSetupClass, L"\\\\?\\usb#cam");
  EXPECT_EQ(search(kVideoCameraInterface, GUID{}), 0u);
  const WinDeviceScanFilter filter(kCaptureInterface, kImageSetupClass);
  const auto path = [&](std::uint32_t index = 0) {
    return takeText([&](char** text) { return scanner.getParentInterfacePath(filter, index, text); });
  };
  const auto name = [&](std::uint32_t index = 0) {
    return takeText(
        [&](char** text) { return scanner.getParentRegistryProperty(filter, index, SPDRP_FRIENDLYNAME, text); });
  };

  // The path is that of the parent itself, in any case; the property asks for the exact text, be it a part of the id.
  std::wstring& parent = scriptedSetupApi().devices[1].parentId;
  for (const auto& [id, pathFound, nameFound] : {std::tuple(L"USB\\HUB\\1", true, true),
                                                 {L"usb\\hub\\1", true, false},
                                                 {L"USB\\HUB", false, true},
                                                 {L"", false, false}}) {
    parent = id;
    EXPECT_EQ(path(), pathFound ? std::optional<std::string>("\\\\?\\usb#hub") : std::nullopt);
    EXPECT_EQ(name(), nameFound ? std::optional<std::string>("Name of USB\\HUB\\1") : std::nullopt);
  }
  EXPECT_THAT(scriptedSetupApi().openings.back(), testing::Pair(kImageSetupClass, 10u));

  EXPECT_EQ(path(1), std::nullopt);
  EXPECT_EQ(name(1), std::nullopt);
  EXPECT_EQ(systemScript().outstanding().at("device information set"), 1) << "that of the search";
}

}  // namespace
