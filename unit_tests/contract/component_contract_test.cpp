// Real components, found by the finished DLL in the system and called by place. The cameras are virtual: the module
// finds their mf.dll where it lies itself.

#include <QProcess>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "by_place.h"

namespace {

using Properties = std::vector<std::pair<std::string, std::string>>;

struct Description {
  std::string name;
  std::string detail;
  Properties properties;
  std::map<std::string, std::string> attributes;
};

struct Part {
  Properties properties;
  std::string name;
};

struct Format {
  std::uint32_t width;
  std::uint32_t height;
  bool topDown;
};

class ComponentContract : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(QProcess::execute(VIRTUAL_CAMERA, {"plant", CAMERAS}), 0); }
  void TearDown() override { EXPECT_EQ(QProcess::execute(VIRTUAL_CAMERA, {"unplant"}), 0); }

  void* manager() { return call<void*>(module.instance(), 5); }
  std::size_t count() { return call<std::size_t>(manager(), 3); }

  /// The component of this name, after a refresh.
  void* component(const std::string& name) {
    call<void>(manager(), 7);
    for (std::uint32_t i = 0; i < count(); ++i) {
      void* const candidate = call<void*>(manager(), 4, i);
      if (call<Description>(candidate, 3).name == name) return candidate;
    }
    throw std::runtime_error("there is no " + name);
  }

  LoadedModule module;
};

TEST_F(ComponentContract, TheManagerLooksScansAndHandsOut) {
  EXPECT_TRUE(call<bool>(manager(), 5));
  EXPECT_EQ(count(), 0u) << "looking does not scan";
  call<void>(manager(), 7);
  ASSERT_EQ(count(), 2u);
  for (std::uint32_t i = 0; i < 2; ++i) {
    void* const component = call<void*>(manager(), 4, i);
    ASSERT_NE(component, nullptr);
    EXPECT_EQ(call<void*>(manager(), 6, i), component);
    EXPECT_EQ(call<std::string>(component, 2), std::to_string(i));
  }
  EXPECT_EQ(call<void*>(manager(), 4, std::uint32_t{2}), nullptr);
  EXPECT_THROW(call<void*>(manager(), 6, std::uint32_t{2}), std::out_of_range);
  EXPECT_EQ(call<void*>(manager(), 6, std::uint32_t{3}), nullptr);
}

TEST_F(ComponentContract, ACameraIsDescribedByItsProperties) {
  const std::map<std::string, Properties> cameras = {
      {"Desk camera",
       {{"CAMERA_DESCRIPTION", "USB Video Device"},
        {"CAMERA_MANUFACTURER", "Meridian"},
        {"CAMERA_TYPE", "USB"},
        {"CAMERA_HARDWARE_ID", "USB\\VID_1BCF&PID_2C99"},
        {"DRIVER_VERSION", "10.0.19041.1"}}},
      {"Lid camera",
       {{"CAMERA_DESCRIPTION", "Integrated Camera"},
        {"CAMERA_MANUFACTURER", "Northlight"},
        {"CAMERA_TYPE", "Display"},
        {"CAMERA_HARDWARE_ID", "DISPLAY\\NLC0640"}}},
  };
  for (const auto& [name, expected] : cameras) {
    SCOPED_TRACE(name);
    void* const camera = component(name);
    auto [foundName, detail, properties, attributes] = call<Description>(camera, 3);
    EXPECT_TRUE(detail.empty());
    EXPECT_TRUE(attributes.empty());
    ASSERT_FALSE(properties.empty());
    EXPECT_EQ(properties.front().first, "UDI");
    EXPECT_FALSE(properties.front().second.empty());
    properties.erase(properties.begin());
    EXPECT_EQ(properties, expected);
    EXPECT_TRUE(call<std::vector<Part>>(camera, 4).empty());
  }
}

TEST_F(ComponentContract, ACameraGivesTheFixedAnswersAndSuitsBothTests) {
  void* const camera = component("Desk camera");
  EXPECT_EQ(call<void*>(camera, 5), nullptr);
  for (std::size_t flag : {6u, 7u, 9u}) EXPECT_TRUE(call<bool>(camera, flag)) << "place " << flag;
  for (std::size_t hook : {8u, 10u, 11u}) call<void>(camera, hook);
  for (std::uint32_t index : {0u, 1u}) EXPECT_TRUE((call<bool, void*>(module.test(index), 2, camera)));
}

TEST_F(ComponentContract, ACapturerStartsDeliversAndStops) {
  void* const capturer = call<void*>(component("Lid camera"), 12);
  ASSERT_NE(capturer, nullptr);
  Format format{};
  EXPECT_EQ((call<int, Format&>(capturer, 5, format)), 1);
  EXPECT_EQ(call<std::uint32_t>(capturer, 4), 116u) << "not running";

  ASSERT_EQ(call<std::uint32_t>(capturer, 2), 0u);
  EXPECT_EQ(call<std::uint32_t>(capturer, 2), 117u) << "running already";
  EXPECT_EQ((call<int, Format&>(capturer, 5, format)), 0);
  EXPECT_EQ(format.width, 320u);
  EXPECT_EQ(format.height, 240u);
  EXPECT_TRUE(format.topDown);
  std::uint8_t* buffer = nullptr;
  EXPECT_EQ((call<std::uint32_t, std::uint8_t*&, std::uint32_t>(capturer, 3, buffer, 5000)), 0u);
  const std::unique_ptr<std::uint8_t[]> frame(buffer);
  ASSERT_NE(frame, nullptr);
  // The camera leaves the fourth byte of a pixel 0; the module sets it.
  const std::uint8_t* const lastPixel = frame.get() + (320 * 240 - 1) * 4;
  EXPECT_EQ(lastPixel[3], 0xff);
  call<std::uint32_t>(capturer, 4);
  EXPECT_EQ(call<std::uint32_t>(capturer, 4), 116u) << "stopped";
}

}  // namespace
