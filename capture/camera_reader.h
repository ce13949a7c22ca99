#pragma once

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <string>

#include "capture/camera_frame_capturer.h"

/// An opened camera: an asynchronous source reader for its RGB32 frames and their negotiated form.
struct CameraReader {
  Microsoft::WRL::ComPtr<IMFSourceReader> reader;
  FrameFormat format;
};

/// Opens the camera with this device path; `callback` gets the samples. CaptureOk and a filled `opened`, or
/// CaptureCannotOpenDevice or CaptureInitFailed; `opened` may then hold a reader that only waits to be released.
/// COM and Media Foundation must be started on the calling thread.
[[nodiscard]] CaptureStatus openCameraReader(const std::string& symbolicLink, IMFSourceReaderCallback* callback,
                                             CameraReader& opened);
