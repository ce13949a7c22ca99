#pragma once

#include "module/item_id.h"

/// The identifiers by which the host addresses the parts of this module, module number 17.
inline constexpr ItemId kBarcodeTestId(17, 1, 2);
inline constexpr ItemId kCaptureTestId(17, 1, 1);
inline constexpr ItemId kResourceId(17, 0, 0);
inline constexpr ItemId kComponentManagerId(17, 0, 0);
inline constexpr ItemId kCameraDiagnosticId(17, 1, 0);
