#pragma once

#include <QString>

#include <vector>

#include "standalone/virtual_camera/description/camera_description.h"

/// Lets a camera go and come as its faults have it from `from` seconds after its start on. It needs no stream: a
/// program that is told that its camera is gone stops it, and is told later that it is back. An earlier time line of
/// the camera ends. Returns at once.
void startPlugTimeLine(const QString& symbolicLink, const std::vector<Fault>& faults, double from);

/// Ends a camera's time line, if there is one.
void endPlugTimeLine(const QString& symbolicLink);

/// Has the removal of a device told that is not the camera. Returns at once.
void broadcastRemovalOfAnother();
