#include "discovery/camera_component_manager.h"

#include <memory>
#include <stdexcept>

#include <gmock/gmock.h>

#include "capture/win_camera_frame_capturer.h"
#include "discovery/win_camera_component.h"
#include "unit_tests/discovery/camera_fixture.h"

namespace {

using testing::ElementsAre;
using testing::Pair;
using testing::ThrowsMessage;

/// A reference to a component's capturer; it tells whether the component has given up its own.
using CapturerWatch = Microsoft::WRL::ComPtr<WinCameraFrameCapturer>;

CapturerWatch watched(SystemComponent* component) {
  return static_cast<WinCameraFrameCapturer*>(static_cast<CameraComponent*>(component)->getFrameCapturer());
}
bool componentIsGone(const CapturerWatch& watch) {
  watch->AddRef();
  return watch->Release() == 1;
}

class CameraComponentManagerTest : public CameraFixture {
 protected:
  std::unique_ptr<CameraComponentManager> manager = std::make_unique<CameraComponentManager>(ItemId(17, 0, 0));
};

TEST_F(CameraComponentManagerTest, AComponentDescribesItsCamera) {
  CameraInfo info{"path", "Cam", "Acme", "Description", "Hardware", "Class", "Driver", "", CameraType::kUsb};
  WinCameraComponent usb(info, 0);
  EXPECT_EQ(usb.getCameraInfo().devicePath, "path");
  EXPECT_EQ(usb.hostObjectAtPlace5(), nullptr);
  EXPECT_TRUE(usb.hostFlagAtPlace6() && usb.hostFlagAtPlace7() && usb.hostFlagAtPlace9());
  EXPECT_EQ(usb.getDescription().name, "Cam");
  EXPECT_THAT(usb.getDescription().properties,
              ElementsAre(Pair("UDI", "id of Cam_0"), Pair("CAMERA_DESCRIPTION", "Description"),
                          Pair("CAMERA_MANUFACTURER", "Acme"), Pair("CAMERA_TYPE", "USB"),
                          Pair("CAMERA_HARDWARE_ID", "Hardware")));

  info.type = CameraType::kInternal;
  info.driverVersion = "1.2";
  WinCameraComponent internal(info, 4000000000);
  const auto properties = internal.getDescription().properties;
  ASSERT_EQ(properties.size(), 6u);
  EXPECT_THAT(properties[0], Pair("UDI", "id of Cam_4000000000"));
  EXPECT_THAT(properties[3], Pair("CAMERA_TYPE", "Display"));
  EXPECT_THAT(properties[5], Pair("DRIVER_VERSION", "1.2"));
  EXPECT_EQ(internal.getId(), "4000000000");
}

TEST_F(CameraComponentManagerTest, AnswersBeyondItsComponents) {
  const auto atTheEnd = ThrowsMessage<std::out_of_range>("invalid vector subscript");
  EXPECT_FALSE(manager->hasComponents());
  manager->refresh();
  EXPECT_EQ(manager->getComponentCount(), 0u);
  EXPECT_THAT([this] { manager->componentAt(0); }, atTheEnd);

  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#a");
  plugInCamera(L"B", kCameraSetupClass, L"\\\\?\\usb#b");
  EXPECT_TRUE(manager->hasComponents());
  EXPECT_EQ(manager->getComponentCount(), 0u) << "asking does not scan";
  manager->refresh();
  ASSERT_EQ(manager->getComponentCount(), 2u);
  EXPECT_EQ(manager->componentAt(1), manager->getComponent(1));
  EXPECT_EQ(manager->componentAt(1)->getDescription().name, "Name of B");
  EXPECT_EQ(manager->componentAt(1)->getId(), "1");
  EXPECT_THAT([this] { manager->componentAt(2); }, atTheEnd);
  EXPECT_EQ(manager->componentAt(3), nullptr);
}

TEST_F(CameraComponentManagerTest, ARescanThatSucceedsAloneEndsComponents) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#a");
  manager->refresh();
  ASSERT_EQ(manager->getComponentCount(), 1u);
  SystemComponent* first = manager->getComponent(0);
  const CapturerWatch watch = watched(first);

  systemScript().failCall("MFStartup");
  manager->refresh();
  EXPECT_EQ(manager->getComponent(0), first);
  EXPECT_FALSE(componentIsGone(watch));

  manager->refresh();
  EXPECT_TRUE(componentIsGone(watch));
  ASSERT_EQ(manager->getComponentCount(), 1u);
  const std::unique_ptr<SystemComponent> second(manager->getComponent(0));
  const CapturerWatch watchOfSecond = watched(second.get());
  manager.reset();
  EXPECT_FALSE(componentIsGone(watchOfSecond)) << "the host may still hold it";
}

}  // namespace
