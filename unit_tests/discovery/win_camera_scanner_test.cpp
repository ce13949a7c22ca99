#include "discovery/win_camera_scanner.h"

#include <optional>
#include <tuple>

#include <gmock/gmock.h>

#include "unit_tests/discovery/camera_fixture.h"
#include "utils/platform/media_session.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Outstanding = std::map<std::string, int>;

auto named(const char* name) {
  return testing::Field(&CameraInfo::name, name);
}

class WinCameraScannerTest : public CameraFixture {
 protected:
  /// The only camera of a scan.
  CameraInfo onlyCamera() {
    EXPECT_EQ(scanner.scan(), 0u);
    EXPECT_THAT(scanner.getCameras(), testing::SizeIs(1));
    return scanner.getCameras().at(0);
  }

  WinCameraScanner scanner;
};

TEST_F(WinCameraScannerTest, FillsTheRecordOfACamera) {
  ScriptedDevice& device = plugInCamera(L"USB\\1", kCameraSetupClass, L"\\\\?\\usb#Vid_1#{e5}");
  device.setText(SPDRP_DEVICEDESC, L"Description");
  device.setText(SPDRP_CLASSGUID, L"{ca3e7ab9}");
  device.setText(SPDRP_HARDWAREID, std::wstring(L"First\0Second\0", 13));
  device.setText(SPDRP_DRIVER, L"{ca3e7ab9}\\0003");
  setDriverVersion(L"{ca3e7ab9}\\0003", L"10.0.1");

  const CameraInfo camera = onlyCamera();
  EXPECT_THAT((std::vector{camera.devicePath, camera.name, camera.manufacturer, camera.description, camera.hardwareId,
                           camera.classGuid, camera.driverKey, camera.driverVersion}),
              ElementsAre("\\\\?\\usb#Vid_1#{e5}", "Name of USB\\1", "Acme", "Description", "First", "{ca3e7ab9}",
                          "{ca3e7ab9}\\0003", "10.0.1"));
  EXPECT_EQ(camera.type, CameraType::kUsb);
  EXPECT_THAT(scriptedSetupApi().registryTextSizes, ElementsAre(2 * 7 * sizeof(wchar_t)))
      << "twice as large, deliberately";
}

TEST_F(WinCameraScannerTest, NamesACameraByTheFirstNameThatThereIs) {
  using Case = std::tuple<CameraType, bool, std::optional<std::wstring>, const char*>;
  for (const auto& [type, hasFriendlyName, interfaceName, expected] :
       {Case{CameraType::kUsb, true, L"Pin", "Name of A"},
        {CameraType::kUsb, false, L"Pin", "Pin"},
        {CameraType::kUsb, false, {}, "AcmeUSB Camera"},
        {CameraType::kInternal, false, {}, "AcmeInternal Camera"}}) {
    reset();
    ScriptedDevice& device =
        plugInCamera(L"A", kCameraSetupClass, type == CameraType::kUsb ? L"\\\\?\\usb#1" : L"\\\\?\\display#1");
    // A friendly name of size zero counts as absent.
    if (!hasFriendlyName) device.properties[SPDRP_FRIENDLYNAME] = L"";
    device.interfaces[0].name = interfaceName;
    const CameraInfo camera = onlyCamera();
    EXPECT_EQ(camera.name, expected);
    EXPECT_EQ(camera.type, type) << camera.name;
  }
}

TEST_F(WinCameraScannerTest, PutsTheBatchOfTheLastSearchFirst) {
  plugInCamera(L"CAMERA\\B", kCameraSetupClass, L"\\\\?\\usb#b");
  plugInCamera(L"CAMERA\\A", kCameraSetupClass, L"\\\\?\\usb#a");
  plugInCamera(L"MEDIA", kMediaSetupClass, L"\\\\?\\usb#m");
  plugInCamera(L"IMAGE", kImageSetupClass, L"\\\\?\\usb#i");
  // Found twice, and kept twice.
  scriptedSetupApi().devices.back().interfaces.push_back({kCaptureInterface, L"\\\\?\\usb#I", {}});

  EXPECT_EQ(scanner.scan(), 0u);
  EXPECT_THAT(scanner.getCameras(), ElementsAre(named("Name of MEDIA"), named("Name of IMAGE"), named("Name of IMAGE"),
                                                named("Name of CAMERA\\A"), named("Name of CAMERA\\B")));
  EXPECT_EQ(scanner.getCameras()[1].devicePath, "\\\\?\\usb#I");
  const auto video = testing::Pair(kVideoCameraInterface, 18u), capture = testing::Pair(kCaptureInterface, 18u);
  EXPECT_THAT(scriptedSetupApi().openings, ElementsAre(video, capture, video, capture, video, capture));
}

TEST_F(WinCameraScannerTest, TakesOnlyLinkedPathsWithAKnownPrefix) {
  plugInCamera(L"CAPITALS", kCameraSetupClass, L"\\\\?\\USB#1");
  plugInCamera(L"ROOT", kCameraSetupClass, L"\\\\?\\root#1");
  plugIn(L"NOT LINKED", kCameraSetupClass, L"\\\\?\\usb#2");
  scriptedMediaFoundation().links.emplace_back(std::nullopt);

  EXPECT_TRUE(scanner.hasCameras());
  EXPECT_EQ(scanner.scan(), 0u);
  EXPECT_THAT(scanner.getCameras(), IsEmpty());
}

TEST_F(WinCameraScannerTest, ALaterInterfaceOfADeviceKeepsWhatItCannotRead) {
  ScriptedDevice& device = plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#1");
  device.interfaces.push_back({kVideoCameraInterface, L"\\\\?\\usb#2", {}});
  device.setText(SPDRP_DRIVER, L"k");
  scriptedMediaFoundation().links.emplace_back(L"\\\\?\\usb#2");
  setDriverVersion(L"k", L"7");
  plugInCamera(L"B", kCameraSetupClass, L"\\\\?\\usb#3");

  // The driver's key cannot be read again; the version is gone, or goes between its two reads.
  for (const auto& [read, version] : {std::pair(3, "k 7"), std::pair(4, "k ")}) {
    systemScript().failCall("SetupDiGetDeviceRegistryPropertyW", 12);
    systemScript().failCall("RegGetValueW", read);
    EXPECT_EQ(scanner.scan(), 0u);
    const auto cameras = scanner.getCameras();
    ASSERT_EQ(cameras.size(), 3u);
    EXPECT_EQ(cameras[1].devicePath, "\\\\?\\usb#2");
    EXPECT_EQ(cameras[1].driverKey + " " + cameras[1].driverVersion, version);
    EXPECT_EQ(cameras[2].driverVersion, "") << "another device starts afresh";
  }
}

TEST_F(WinCameraScannerTest, AClearedScannerForgetsItsCameras) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#1");
  EXPECT_EQ(onlyCamera().name, "Name of A");
  systemScript().failCall("MFEnumDeviceSources");
  EXPECT_FALSE(scanner.hasCameras()) << "the links of the scan are forgotten";
  EXPECT_EQ(scanner.clear(), 0u);
  EXPECT_THAT(scanner.getCameras(), IsEmpty());
}

TEST_F(WinCameraScannerTest, EndsComAlsoWhenTheThreadIsInAnotherApartment) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#1");
  scriptedMediaFoundation().apartmentStatus = RPC_E_CHANGED_MODE;
  EXPECT_EQ(onlyCamera().name, "Name of A");
  EXPECT_EQ(systemScript().outstanding().at("apartment"), -1) << "not taken, but given back";
}

TEST_F(WinCameraScannerTest, ASessionEndsBothOrOnlyWhatCameUp) {
  using vexa::utils::platform::MediaSession;
  for (const auto& [failing, started] : {std::pair("CoInitializeEx", 0), std::pair("MFStartup", 1), std::pair("", 2)}) {
    for (const auto ending : {MediaSession::Ending::kBoth, MediaSession::Ending::kWhatStarted}) {
      reset();
      systemScript().failEveryCall(failing);
      EXPECT_EQ(MediaSession(ending).isStarted(), started == 2) << failing;
      const int ended = ending == MediaSession::Ending::kBoth ? 2 : started;
      const std::vector<std::string> both = {"MFShutdown", "CoUninitialize"};
      std::vector<std::string> log = systemScript().log();
      log.erase(log.begin(), log.begin() + std::min(started + 1, 2));
      EXPECT_EQ(log, std::vector<std::string>(both.end() - ended, both.end())) << failing;
    }
  }
}

TEST_F(WinCameraScannerTest, GivesBackInOrderAndKeepsTheLinkTexts) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#1");
  EXPECT_TRUE(scanner.hasCameras());
  EXPECT_THAT(systemScript().log(),
              ElementsAre("CoInitializeEx", "MFStartup", "MFCreateAttributes", "IMFAttributes::SetGUID",
                          "MFEnumDeviceSources", "IMFActivate::GetAllocatedString", "WideCharToMultiByte",
                          "attributes released", "source released", "array freed", "MFShutdown", "CoUninitialize"));
  EXPECT_EQ(systemScript().outstanding(), (Outstanding{{"link text", 1}}));
}

}  // namespace
