#pragma once

#include <QString>

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"

/// How Windows knows a camera.
struct CameraIdentity {
  QString instanceId;    ///< USB\VID_1BCF&PID_2C99\VCAM&0000
  QString symbolicLink;  ///< \\?\usb#vid_1bcf&pid_2c99#vcam&0000#{e5323777-f976-4f5b-9b55-b94699c46e44}
};

/// The one device interface class under which every virtual camera is registered (KSCATEGORY_VIDEO_CAMERA). A camera
/// under a second class would be found twice by a search through both.
QString cameraInterfaceClass();

/// The identity of the camera at a position of its file. The position makes it unique.
[[nodiscard]] CameraIdentity identityOf(const CameraDescription& camera, std::size_t position);
