#pragma once

#include <windows.h>
#include <setupapi.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "module/keys/device_classes.h"
#include "unit_tests/fakes/com_object.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/scripted_media_foundation.h"
#include "unit_tests/fakes/scripted_registry.h"
#include "unit_tests/fakes/scripted_setupapi.h"
#include "unit_tests/fakes/system_script.h"

constexpr GUID kCameraSetupClass = DeviceClassList[0];
constexpr GUID kImageSetupClass = DeviceClassList[1];
constexpr GUID kMediaSetupClass = DeviceClassList[2];
constexpr GUID kVideoCameraInterface = kCameraInterfaceClassList[0];
constexpr GUID kCaptureInterface = kCameraInterfaceClassList[1];

/// A machine whose system calls are scripted.
class CameraFixture : public testing::Test {
 protected:
  CameraFixture() { reset(); }

  static void reset() {
    resetFakeHostServices();
    resetSystemScript();
  }

  /// Adds a device with one interface; its texts name it. The references hold until the next device is added.
  static ScriptedDevice& plugIn(const std::wstring& id, const GUID& deviceClass, const std::wstring& path,
                                const GUID& interfaceClass = kVideoCameraInterface) {
    ScriptedDevice device{id, deviceClass, {{interfaceClass, path, {}}}, {}, {}};
    device.setText(SPDRP_FRIENDLYNAME, L"Name of " + id);
    device.setText(SPDRP_MFG, L"Acme");
    scriptedSetupApi().devices.push_back(device);
    return scriptedSetupApi().devices.back();
  }

  /// The same, and Media Foundation lists it, in its own writing.
  static ScriptedDevice& plugInCamera(const std::wstring& id, const GUID& deviceClass, const std::wstring& path) {
    std::wstring link = path;
    CharUpperW(link.data());
    scriptedMediaFoundation().links.emplace_back(link);
    return plugIn(id, deviceClass, path);
  }

  static void setDriverVersion(const std::wstring& driverKey, const std::wstring& version) {
    scriptedRegistry().texts[{L"SYSTEM\\CurrentControlSet\\Control\\Class\\" + driverKey, L"DriverVersion"}] = version;
  }
};
