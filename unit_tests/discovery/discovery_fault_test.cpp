// Every system call of the search for cameras fails in its turn: once, and from then on. Nothing is lost or left
// behind, and the same object finds everything as soon as the system answers again.

#include <cstdio>
#include <functional>
#include <optional>
#include <set>

#include <gmock/gmock.h>

#include "discovery/camera_component_manager.h"
#include "discovery/system_component.h"
#include "discovery/win_camera_scanner.h"
#include "discovery/win_device_scan_filter.h"
#include "unit_tests/discovery/camera_fixture.h"

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

  /// Runs `round` again and again, in a machine that is set up anew each time: the first call of what the round
  /// attempts fails, then the second, until there is none left to fail; then all of that again with failures that last.
  void forEveryFault(const std::function<void()>& round) {
    for (const bool faultLasts : {false, true}) {
      lasts = faultLasts;
      functions.clear();
      for (failing = 1;; ++failing) {
        reset();
        plugInTwoCameras();
        const int arrays = liveArrays();
        round();
        auto outstanding = systemScript().outstanding();
        for (const char* const kind : kept) outstanding.erase(kind);
        EXPECT_THAT(outstanding, IsEmpty()) << "after call " << failing;
        EXPECT_EQ(fakeComObjects, 0);
        EXPECT_EQ(liveArrays(), arrays);
        if (function.empty()) break;
        functions.insert(function);
        ++faults;
      }
    }
  }
  /// Makes the calls of which one fails; afterwards the system answers again.
  void attempt(const std::function<void()>& calls) {
    systemScript().failAnyCall(failing, lasts);
    calls();
    function = systemScript().failedFunction();
    systemScript().failAnyCall(0);
  }
  bool failed(const std::set<std::string>& names) const { return names.contains(function); }

  ~DiscoveryFaultTest() override { std::printf("faults tried: %d\n", faults); }

  /// What stays taken on purpose: the links, and what the process's only scanner has open.
  std::vector<const char*> kept = {"link text"};
  int failing = 0;
  bool lasts = false;
  /// What failed in this round; empty when nothing did. And in the rounds before.
  std::string function;
  std::set<std::string> functions;
  int faults = 0;
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
    attempt([&] { status = scanner.scan(); });
    // Only a set that could be opened is looked into.
    const bool anySearch = systemScript().calls("SetupDiEnumDeviceInfo") > 0;
    SCOPED_TRACE((lasts ? "from then on: " : "once: ") + function);
    const auto cameras = scanner.getCameras();
    if (failed(kStart) || failed(kEnumeration)) {
      EXPECT_THAT(cameras, IsEmpty());
    } else if (function.empty() || !(lasts || failed(costly))) {
      EXPECT_THAT(cameras, SizeIs(2));
    } else if (!lasts) {
      EXPECT_THAT(cameras, AnyOf(SizeIs(1), SizeIs(2)));
    }
    EXPECT_EQ(status, anySearch || function.empty() ? 0u : 1u);
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
  EXPECT_THAT(functions, SizeIs(15)) << "every scripted function had its turn";
}

TEST_F(DiscoveryFaultTest, AskingForCamerasIsTrueWhileMediaFoundationListsOne) {
  forEveryFault([&] {
    WinCameraScanner scanner;
    bool any = false;
    attempt([&] { any = scanner.hasCameras(); });
    if (!(lasts && failed({"IMFActivate::GetAllocatedString"}))) {
      EXPECT_EQ(any, !failed(kStart) && !failed(kEnumeration)) << function;
    }
    EXPECT_TRUE(scanner.hasCameras());
  });
}

TEST_F(DiscoveryFaultTest, ARefreshKeepsTheComponentsOfTheLastOrHasAllOfItsOwn) {
  kept.push_back("device information set");
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
    EXPECT_EQ(components().size(), manager.getComponentCount()) << function;
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
      EXPECT_EQ(text, function.empty() ? Text(expected) : std::nullopt) << function;
      ask();
      EXPECT_EQ(text, expected);
    });
  }
}

}  // namespace
