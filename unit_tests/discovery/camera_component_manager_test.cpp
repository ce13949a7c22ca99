#include "discovery/camera_component_manager.h"

#include <memory>
#include <stdexcept>

#include <gmock/gmock.h>

#include "capture/win_camera_frame_capturer.h"
#include "discovery/win_camera_component.h"
#include "unit_tests/discovery/camera_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// A reference to a component's capturer; it tells whether the component has given up its own.
class CapturerWatch {
 public:
  explicit CapturerWatch(SystemComponent* component)
      : capturer(static_cast<WinCameraFrameCapturer*>(static_cast<CameraComponent*>(component)->getFrameCapturer())) {
    capturer->AddRef();
  }
  bool componentIsGone() {
    capturer->AddRef();
    return capturer->Release() == 1;
  }
  ~CapturerWatch() { capturer->Release(); }

 private:
  WinCameraFrameCapturer* capturer;
};

TEST_F(CameraFixture, aComponentDescribesItsCamera) {
  CameraInfo info;
  info.name = "Cam";
  info.description = "Description";
  info.manufacturer = "Acme";
  info.hardwareId = "Hardware";
  info.devicePath = "path";
  info.type = CameraType::kUsb;
  WinCameraComponent usb(info, 0);
  info.type = CameraType::kInternal;
  info.driverVersion = "1.2";
  WinCameraComponent internal(info, 4000000000);

  EXPECT_THAT(usb.getDescription().properties,
              ElementsAre(Pair("UDI", "id of Cam_0"), Pair("CAMERA_DESCRIPTION", "Description"),
                          Pair("CAMERA_MANUFACTURER", "Acme"), Pair("CAMERA_TYPE", "USB"),
                          Pair("CAMERA_HARDWARE_ID", "Hardware")));
  const ComponentDescription description = internal.getDescription();
  EXPECT_EQ(description.name, "Cam");
  EXPECT_EQ(description.detail, "");
  EXPECT_THAT(description.attributes, IsEmpty());
  ASSERT_EQ(description.properties.size(), 6u);
  EXPECT_THAT(description.properties[0], Pair("UDI", "id of Cam_4000000000"));
  EXPECT_THAT(description.properties[3], Pair("CAMERA_TYPE", "Display"));
  EXPECT_THAT(description.properties[5], Pair("DRIVER_VERSION", "1.2"));
  EXPECT_EQ(internal.getId(), "4000000000");
  EXPECT_THAT(internal.getSubComponents(), IsEmpty());
  EXPECT_EQ(internal.getCameraInfo().devicePath, "path");
}

TEST_F(CameraFixture, aCapturerOutlivesItsComponentWhileItIsReferenced) {
  auto component = std::make_unique<WinCameraComponent>(CameraInfo(), 0);
  CapturerWatch watch(component.get());
  EXPECT_FALSE(watch.componentIsGone());
  component.reset();
  EXPECT_TRUE(watch.componentIsGone());
}

class CameraComponentManagerTest : public CameraFixture {
 protected:
  ~CameraComponentManagerTest() override {
    // A manager leaves its components alive.
    scriptedSetupApi().devices.clear();
    manager.refresh();
  }

  CameraComponentManager manager{ItemId(17, 0, 0)};
};

TEST_F(CameraComponentManagerTest, answersBeyondItsComponents) {
  EXPECT_FALSE(manager.hasComponents());
  manager.refresh();
  EXPECT_EQ(manager.getComponentCount(), 0u);
  EXPECT_EQ(manager.getComponent(0), nullptr);
  EXPECT_THROW(manager.componentAt(0), std::out_of_range);

  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#a");
  plugInCamera(L"B", kCameraSetupClass, L"\\\\?\\usb#b");
  EXPECT_TRUE(manager.hasComponents());
  EXPECT_EQ(manager.getComponentCount(), 0u) << "asking does not scan";
  manager.refresh();
  ASSERT_EQ(manager.getComponentCount(), 2u);
  EXPECT_EQ(manager.componentAt(1), manager.getComponent(1));
  EXPECT_EQ(manager.componentAt(1)->getDescription().name, "Name of B");
  EXPECT_EQ(manager.componentAt(1)->getId(), "1");
  EXPECT_EQ(manager.getComponent(2), nullptr);
  EXPECT_EQ(manager.componentAt(3), nullptr);
  try {
    manager.componentAt(2);
    FAIL() << "no exception";
  } catch (const std::out_of_range& exception) {
    EXPECT_STREQ(exception.what(), "invalid vector subscript");
  }
}

TEST_F(CameraComponentManagerTest, aRescanReplacesTheComponentsUnlessItFails) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#a");
  manager.refresh();
  ASSERT_EQ(manager.getComponentCount(), 1u);
  SystemComponent* first = manager.getComponent(0);
  CapturerWatch watch(first);

  systemScript().failCall("MFStartup", systemScript().calls("MFStartup") + 1);
  manager.refresh();
  EXPECT_EQ(manager.getComponent(0), first);
  EXPECT_FALSE(watch.componentIsGone());

  manager.refresh();
  EXPECT_EQ(manager.getComponentCount(), 1u);
  EXPECT_TRUE(watch.componentIsGone());
}

TEST_F(CameraComponentManagerTest, leavesTheComponentsToTheHostThatMayStillHoldThem) {
  plugInCamera(L"A", kCameraSetupClass, L"\\\\?\\usb#a");
  auto other = std::make_unique<CameraComponentManager>(ItemId(17, 0, 0));
  other->refresh();
  const std::unique_ptr<SystemComponent> component(other->getComponent(0));
  CapturerWatch watch(component.get());
  other.reset();
  EXPECT_FALSE(watch.componentIsGone());
}

}  // namespace
