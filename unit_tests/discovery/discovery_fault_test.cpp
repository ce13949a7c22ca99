// Every system call and every allocation of the search for cameras fails in its turn: once, and from then on. Nothing
// is lost or left behind, and the same object finds everything as soon as the system answers again. Qt's own memory
// does not fail: under Windows its DLLs have an allocator to themselves.

#include <functional>
#include <optional>
#include <set>

#include <gmock/gmock.h>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "discovery/win_camera_scanner.h"
#include "discovery/win_device_scan_filter.h"
#include "unit_tests/discovery/camera_fixture.h"
#include "unit_tests/fakes/fault_rounds.h"

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Text = std::optional<std::string>;

class DiscoveryFaultTest : public CameraFixture {
 protected:
  /// One camera in each of two searches, with every kind of name, a driver version and a parent.
  static void plugInTwoCameras() {
    plugIn(L"USB\\HUB\\1", kImageSetupClass, L"\\\\?\\usb#hub", kCaptureInterface);
    ScriptedDevice& first = plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#1");
    first.setText(SPDRP_DRIVER, L"k");
    first.parentId = L"USB\\HUB\\1";
    setDriverVersion(L"k", L"7");
    ScriptedDevice& second = plugInCamera(L"B", kMediaSetupClass, L"\\\\?\\display#2");
    second.properties.erase(SPDRP_FRIENDLYNAME);
    second.interfaces[0].name = L"Pin";
  }

  /// Runs `round` once for every fault, each time in a machine that is set up anew.
  void forEveryFault(const std::function<void()>& round) {
    rounds.forEach({Fault::kSystem, Fault::kMemory}, [&] {
      reset();
      plugInTwoCameras();
      round();
      auto outstanding = systemScript().outstanding();
      outstanding.erase("link text");  // on purpose
      if (keepsScanner) outstanding.erase("device information set");
      EXPECT_THAT(outstanding, IsEmpty());
      EXPECT_EQ(fakeComObjects, 0);
      EXPECT_TRUE(keepsScanner || blocksLeft() == 0) << blocksLeft();
    });
  }
  /// Whether the calls came to their end; only for want of memory they may not.
  bool attempt(const std::function<void()>& calls) {
    const bool finished = rounds.attempt(calls);
    EXPECT_TRUE(finished || rounds.kind == Fault::kMemory) << rounds.what();
    return finished;
  }
  bool failed(const std::set<std::string>& names) const { return names.contains(rounds.name); }

  /// Whether the process's only scanner is at work, which keeps its memory and its open set.
  bool keepsScanner = false;
  FaultRounds rounds;
};

const std::set<std::string> kStart = {"CoInitializeEx", "MFStartup"};
const std::set<std::string> kEnumeration = {"MFCreateAttributes", "IMFAttributes::SetGUID", "MFEnumDeviceSources"};

TEST_F(DiscoveryFaultTest, AScanLosesWhatItCouldNotReadAndNoMore) {
  // Whose failure costs the camera that it was about; that of the others a text at most.
  const std::set<std::string> costly = {"IMFActivate::GetAllocatedString",
                                        "SetupDiGetClassDevsW",
                                        "SetupDiEnumDeviceInfo",
                                        "SetupDiGetDeviceInstanceIdW",
                                        "SetupDiEnumDeviceInterfaces",
                                        "SetupDiGetDeviceInterfaceDetailW",
                                        "WideCharToMultiByte"};
  forEveryFault([&] {
    WinCameraScanner scanner;
    std::uint32_t status = 0;
    EXPECT_EQ(scanner.scan(), 0u);
    const int lookedInto = systemScript().calls("SetupDiEnumDeviceInfo");
    const bool finished = attempt([&] { status = scanner.scan(); });
    // Only a set that could be opened is looked into.
    const bool anySearch = systemScript().calls("SetupDiEnumDeviceInfo") > lookedInto;
    const auto cameras = scanner.getCameras();
    if (failed(kStart) || failed(kEnumeration)) {
      EXPECT_THAT(cameras, IsEmpty());
    } else if (finished && (rounds.name.empty() || !(rounds.lasts || failed(costly)))) {
      EXPECT_THAT(cameras, SizeIs(2));
    } else if (finished && !rounds.lasts) {
      EXPECT_THAT(cameras, AnyOf(SizeIs(1), SizeIs(2)));
    }
    EXPECT_TRUE(!finished || (status == 0) == (anySearch || rounds.name.empty())) << status;
    for (const CameraInfo& camera : cameras) {
      const bool usb = camera.type == CameraType::kUsb;
      std::set<std::string> names = {"Name of A", "AcmeUSB Camera", "USB Camera"};
      if (!usb) names = {"Pin", "AcmeInternal Camera", "Internal Camera"};
      // The name is there, but went between the two calls.
      if (!usb && failed({"SetupDiGetDeviceInterfacePropertyW"})) names.insert("");
      EXPECT_TRUE(names.contains(camera.name)) << camera.name;
      EXPECT_TRUE(camera.driverVersion.empty() || (usb && camera.driverVersion == "7")) << camera.driverVersion;
    }

    EXPECT_EQ(scanner.scan(), 0u);
    EXPECT_THAT(scanner.getCameras(),
                ElementsAre(testing::Field(&CameraInfo::name, "Pin"), testing::Field(&CameraInfo::name, "Name of A")));
  });
  EXPECT_THAT(rounds.names, SizeIs(17)) << "every scripted function had its turn, and both forms of new";
}

TEST_F(DiscoveryFaultTest, AskingForCamerasIsTrueWhileMediaFoundationListsOne) {
  forEveryFault([&] {
    WinCameraScanner scanner;
    bool any = false;
    const bool finished = attempt([&] { any = scanner.hasCameras(); });
    if (finished && !(rounds.lasts && failed({"IMFActivate::GetAllocatedString"}))) {
      EXPECT_EQ(any, !failed(kStart) && !failed(kEnumeration));
    }
    EXPECT_TRUE(scanner.hasCameras());
  });
}

TEST_F(DiscoveryFaultTest, ARefreshKeepsTheComponentsOfTheLastOrHasAllOfItsOwn) {
  keepsScanner = true;
  forEveryFault([&] {
    CameraComponentManager manager(ItemId(17, 0, 0));
    const auto components = [&] {
      std::set<SystemComponent*> all;
      for (std::uint32_t index = 0; index < manager.getComponentCount(); ++index)
        all.insert(manager.getComponent(index));
      return all;
    };
    attempt([&] { manager.refresh(); });
    EXPECT_THAT(components(), testing::Not(testing::Contains(nullptr)));
    EXPECT_EQ(components().size(), manager.getComponentCount());
    manager.refresh();
    EXPECT_THAT(components(), SizeIs(2));
    for (SystemComponent* const component : components()) delete component;
  });
}

TEST_F(DiscoveryFaultTest, AnOperationOfTheScannerGivesItsTextOrNone) {
  const std::pair<const char*, std::function<std::uint32_t(WinDeviceInterfaceScanner&, char**)>> operations[] = {
      {"Name of A",
       [](auto& scanner, char** text) { return scanner.getRegistryProperty(0, SPDRP_FRIENDLYNAME, text); }},
      {"7", [](auto& scanner, char** text) { return scanner.getDriverVersion(0, text); }},
      {"\\\\?\\usb#hub",
       [](auto& scanner, char** text) {
         return scanner.getParentInterfacePath(WinDeviceScanFilter(kCaptureInterface, kImageSetupClass), 0, text);
       }},
      {"Name of USB\\HUB\\1", [](auto& scanner, char** text) {
         return scanner.getParentRegistryProperty(WinDeviceScanFilter(kCaptureInterface, kImageSetupClass), 0,
                                                  SPDRP_FRIENDLYNAME, text);
       }}};
  for (const auto& [expected, operation] : operations) {
    forEveryFault([&] {
      WinDeviceInterfaceScanner scanner;
      DeviceMap found;
      Text text;
      const auto ask = [&] { text = takeText([&](char** out) { return operation(scanner, out); }); };
      EXPECT_EQ(scanner.search(WinDeviceScanFilter(kVideoCameraInterface, kCameraSetupClass), found), 0u);
      attempt(ask);
      EXPECT_EQ(text, rounds.name.empty() ? Text(expected) : std::nullopt);
      ask();
      EXPECT_EQ(text, expected);
    });
  }
}

}  // namespace
