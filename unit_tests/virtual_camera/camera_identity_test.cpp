#include "standalone/virtual_camera/description/camera_identity.h"

#include <gtest/gtest.h>

namespace {

struct Case {
  Connection connection;
  const char* hardwareId;
  std::size_t position;
  const char* instanceId;
  const char* linkBegin;
};

class CameraIdentityOf : public testing::TestWithParam<Case> {};

TEST_P(CameraIdentityOf, IsDerivedFromTheDescription) {
  CameraDescription camera;
  camera.connection = GetParam().connection;
  camera.hardwareId = QString::fromLatin1(GetParam().hardwareId);
  const CameraIdentity identity = identityOf(camera, GetParam().position);
  EXPECT_EQ(identity.instanceId.toStdString(), GetParam().instanceId);
  EXPECT_EQ(identity.symbolicLink.toStdString(),
            std::string(GetParam().linkBegin) + "#{e5323777-f976-4f5b-9b55-b94699c46e44}");
}

INSTANTIATE_TEST_SUITE_P(, CameraIdentityOf,
                         testing::Values(Case{Connection::Usb, "", 0, R"(USB\VID_1BCF&PID_2C99\VCAM&0000)",
                                              R"(\\?\usb#vid_1bcf&pid_2c99#vcam&0000)"},
                                         Case{Connection::Usb, R"(USB\Vid_0001&Pid_0002&Rev_0003&MI_00)", 12,
                                              R"(USB\VID_0001&PID_0002\VCAM&0012)",
                                              R"(\\?\usb#vid_0001&pid_0002#vcam&0012)"},
                                         Case{Connection::Display, "", 1, R"(DISPLAY\VCAM0001\VCAM&0001)",
                                              R"(\\?\display#vcam0001#vcam&0001)"},
                                         Case{Connection::Display, "ACPI cam#1", 2, R"(DISPLAY\ACPI_CAM_1\VCAM&0002)",
                                              R"(\\?\display#acpi_cam_1#vcam&0002)"}));

}  // namespace
