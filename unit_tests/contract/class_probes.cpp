// Makes a compiler print the tables of virtual operations of the classes that the host shares with the module: every
// probe has exactly the table of the class that it derives from.

#include <_mingw.h>
// mingw's headers, the standard library's <memory> among them, have it for compilers of their own kind alone.
#define __MINGW_IMPORT extern

#include "capture/camera_frame_capturer.h"
#include "discovery/camera_component.h"
#include "discovery/camera_component_manager.h"
#include "module/camera_module_interface.h"
#include "module/camera_resource.h"
#include "module/diagnostic.h"
#include "module/host_services.h"
#include "module/product_version.h"
#include "module/test_execution_context.h"
#include "module/test_with_device_hint.h"
#include "tests/camera_barcode_test.h"
#include "tests/camera_capture_test.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

/// Instantiating it as a whole, which class_tables.py adds here for every class of its list, emits its table, for an
/// abstract class too.
template <class Class>
struct Probe : Class {
  using Class::Class;
};
