#pragma once

#include <windows.h>
#include <setupapi.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "unit_tests/fakes/fake_com_object.h"
#include "unit_tests/fakes/fake_host_services.h"
#include "unit_tests/fakes/scripted_media_foundation.h"
#include "unit_tests/fakes/scripted_setupapi.h"
#include "unit_tests/fakes/system_script.h"

constexpr GUID kCameraSetupClass = {0xCA3E7AB9, 0xB4C3, 0x4AE6, {0x82, 0x51, 0x57, 0x9E, 0xF9, 0x33, 0x89, 0x0F}};
constexpr GUID kImageSetupClass = {0x6BDD1FC6, 0x810F, 0x11D0, {0xBE, 0xC7, 0x08, 0x00, 0x2B, 0xE2, 0x09, 0x2F}};
constexpr GUID kMediaSetupClass = {0x4D36E96C, 0xE325, 0x11CE, {0xBF, 0xC1, 0x08, 0x00, 0x2B, 0xE1, 0x03, 0x18}};
constexpr GUID kVideoCameraInterface = {0xE5323777, 0xF976, 0x4F5B, {0x9B, 0x55, 0xB9, 0x46, 0x99, 0xC4, 0x6E, 0x44}};
constexpr GUID kCaptureInterface = {0x65E8773D, 0x8F56, 0x11D0, {0xA3, 0xB9, 0x00, 0xA0, 0xC9, 0x22, 0x31, 0x96}};

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
    scriptedSetupApi().registryTexts[{L"SYSTEM\\CurrentControlSet\\Control\\Class\\" + driverKey, L"DriverVersion"}] =
        version;
  }
};
