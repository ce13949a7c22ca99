#pragma once

#include "module/keys/camera_keys.h"

/// The text that a failed test leaves last. Its two halves are keys of the same unit, so they are built before it.
const std::string kFailureHint = kPossibleDefectiveComponents + ": " + kCameraDevice;
