#pragma once

#include <QString>

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"

/// Lets a camera that is here by `arrival` go and come as its faults have it, whatever its stream does. It ends when
/// another time line of the camera begins, and when somebody else plugs the camera in or out or plants it anew. Returns
/// at once.
void startPlugTimeLine(const QString& symbolicLink, int arrival, const std::vector<Fault>& faults);

/// Has the removal of a device told that is not the camera. Returns at once.
void broadcastRemovalOfAnother();
