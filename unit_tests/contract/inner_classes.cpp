// Compiled with the compiler's own dump of class tables: the classes below stand in it.

#include "capture/win_camera_frame_capturer.h"
#include "discovery/win_camera_component.h"
#include "discovery/win_camera_scanner.h"
#include "discovery/win_device_interface_scanner.h"
#include "discovery/win_device_scan_filter.h"
#include "module/test_with_device_hint.h"
#include "tests/camera_barcode_test.h"
#include "tests/camera_capture_test.h"
#include "ui/camera_barcode_widget_wrapper.h"
#include "ui/camera_widget_wrapper.h"

template class TestWithDeviceHint<CameraCaptureTest>;
template class TestWithDeviceHint<CameraBarcodeTest>;
