// Makes a compiler print the tables of virtual operations of the classes that the host shares with the module: every
// probe has exactly the table of the class that it derives from.

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
#include "tests/camera_capture_test.h"
#include "ui/abstract_widget_wrapper.h"
#include "ui/input_request.h"

/// Instantiating it as a whole emits its table, for an abstract class too.
template <class Class>
struct Probe : Class {
  using Class::Class;
};

template struct Probe<Test>;
template struct Probe<CameraCaptureTest>;
template struct Probe<TestWithDeviceHint<CameraCaptureTest>>;
template struct Probe<Diagnostic>;
template struct Probe<ModuleInterface>;
template struct Probe<CameraModuleInterface>;
template struct Probe<ProductVersion>;
template struct Probe<Resource>;
template struct Probe<CameraResource>;
template struct Probe<SystemComponentManager>;
template struct Probe<CameraComponentManager>;
template struct Probe<SystemComponent>;
template struct Probe<CameraComponent>;
template struct Probe<CameraFrameCapturer>;
template struct Probe<InputRequest>;
template struct Probe<AbstractWidgetWrapper>;
template struct Probe<TestExecutionContext>;
template struct Probe<MessageList>;
template struct Probe<ProgressReporter>;
template struct Probe<EventSource>;
template struct Probe<StringHandler>;
template struct Probe<ThreadService>;
template struct Probe<TimerService>;
template struct Probe<ModuleService>;
