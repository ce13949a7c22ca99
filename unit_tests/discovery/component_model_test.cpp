#include <gtest/gtest.h>

#include "discovery/camera_component.h"
#include "discovery/system_component_manager.h"

namespace {

class PlainCamera : public CameraComponent {
 public:
  PlainCamera() : CameraComponent(CameraInfo()) {
    info.type = CameraType::Internal;
    name = "shown";
    detail = "detail";
    properties = {{"z", "1"}, {"a", "2"}};
    attributes = {{"key", "value"}};
    subComponents = {{{{"p", "q"}}, "part"}};
    id = "7";
  }
  CameraFrameCapturer* getFrameCapturer() override { return nullptr; }
};

class OneComponentManager : public SystemComponentManager {
 public:
  explicit OneComponentManager(SystemComponent* component) : SystemComponentManager(ItemId(17, 0, 0)) {
    components = {component};
  }
};

TEST(ComponentModelTest, aComponentCopiesOutWhatItHolds) {
  PlainCamera camera;
  SystemComponent& component = camera;
  const ComponentDescription description = component.getDescription();
  EXPECT_EQ(description.name, "shown");
  EXPECT_EQ(description.detail, "detail");
  EXPECT_EQ(description.properties, (std::vector<ComponentProperty>{{"z", "1"}, {"a", "2"}}));
  EXPECT_EQ(description.attributes.at("key"), "value");
  EXPECT_EQ(component.getSubComponents().at(0).name, "part");
  EXPECT_EQ(component.getId(), "7");
  EXPECT_EQ(component.hostObjectAtPlace5(), nullptr);
  EXPECT_EQ(camera.getCameraInfo().type, CameraType::Internal);
}

TEST(ComponentModelTest, theHostsHooksHaveFixedAnswers) {
  PlainCamera camera;
  EXPECT_TRUE(camera.hostFlagAtPlace6());
  EXPECT_TRUE(camera.hostFlagAtPlace7());
  EXPECT_TRUE(camera.hostFlagAtPlace9());
}

TEST(ComponentModelTest, aManagerAnswersNullBeyondTheEndAndDestroysNothing) {
  PlainCamera camera;
  OneComponentManager manager(&camera);
  EXPECT_EQ(manager.getVersion().key, ItemId(17, 0, 0).key);
  EXPECT_EQ(manager.getComponentCount(), 1u);
  EXPECT_EQ(manager.getComponent(0), &camera);
  EXPECT_EQ(manager.getComponent(1), nullptr);
}

}  // namespace
