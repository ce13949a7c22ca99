#pragma once

#include <mfidl.h>

#include <QImage>

#include "standalone/virtual_camera/description/camera_description.h"

/// The media type of a camera's frames: its format, or for a camera with the fault NotRgb32 one that nobody knows.
HRESULT makeMediaType(const CameraDescription& camera, QSize size, IMFMediaType** type);

/// How a frame is put into its sample.
struct FrameForm {
  PixelFormat format = PixelFormat::kRgb32;
  Stride stride = Stride::kPositive;  ///< the order of the rows
  double share = 1;                   ///< how much of the frame the buffer holds, from the beginning
  bool locksAtOnce = true;            ///< whether the buffer can be locked at the first attempt
};

/// A sample that holds `image` (Format_RGB32) in one buffer, the unused byte of each RGB32 pixel 0. Times are in units
/// of 100 ns.
HRESULT makeFrameSample(const QImage& image, const FrameForm& form, LONGLONG time, LONGLONG duration,
                        IMFSample** sample);
