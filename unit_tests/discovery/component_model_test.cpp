#include <gmock/gmock.h>

#include "discovery/camera_component.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

class DescribedCamera : public CameraComponent {
 public:
  DescribedCamera() : CameraComponent({"path", "", "", "", "", "", "", "", CameraType::kUsb}) {
    name = "Name";
    detail = "Detail";
    properties = {{"B", "1"}, {"A", "2"}};
    attributes = {{"Key", "Value"}};
    subComponents = {{{{"C", "3"}}, "Part"}};
    id = "7";
  }
  CameraFrameCapturer* getFrameCapturer() override { return nullptr; }
};

TEST(ComponentModel, ACameraDescribesItselfAndGivesFixedAnswers) {
  DescribedCamera camera;
  EXPECT_EQ(camera.getId(), "7");
  EXPECT_EQ(camera.getCameraInfo().devicePath, "path");
  const ComponentDescription description = camera.getDescription();
  EXPECT_EQ(description.name + description.detail, "NameDetail");
  EXPECT_THAT(description.properties, ElementsAre(Pair("B", "1"), Pair("A", "2")));
  EXPECT_THAT(description.attributes, ElementsAre(Pair("Key", "Value")));
  ASSERT_EQ(camera.getSubComponents().size(), 1u);
  EXPECT_EQ(camera.getSubComponents()[0].name, "Part");
  EXPECT_THAT(camera.getSubComponents()[0].properties, ElementsAre(Pair("C", "3")));

  EXPECT_EQ(camera.hostObjectAtPlace5(), nullptr);
  EXPECT_TRUE(camera.hostFlagAtPlace6() && camera.hostFlagAtPlace7() && camera.hostFlagAtPlace9());
  camera.hostHookAtPlace8();
  camera.hostHookAtPlace10();
  camera.hostHookAtPlace11();
  EXPECT_EQ(camera.getDescription().properties, description.properties) << "the hooks do nothing";
}

}  // namespace
