#pragma once

#include <mfidl.h>

#include <QImage>

#include "standalone/virtual_camera/description/camera_description.h"

/// The media type of a camera's frames: RGB32, or for a camera with the fault NotRgb32 a format that nobody knows.
HRESULT makeMediaType(const CameraDescription& camera, QSize size, IMFMediaType** type);

/// A sample that holds `image` (Format_RGB32) as RGB32 in one buffer, the unused byte of each pixel 0, its rows in the
/// order that `stride` says. Times are in units of 100 ns.
HRESULT makeFrameSample(const QImage& image, Stride stride, LONGLONG time, LONGLONG duration, IMFSample** sample);
