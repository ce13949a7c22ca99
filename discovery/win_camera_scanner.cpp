#include "discovery/win_camera_scanner.h"

#include <mfapi.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <iterator>

#include "discovery/device_classes.h"
#include "discovery/device_paths.h"
#include "discovery/win_device_scan_filter.h"
#include "module/host_services.h"
#include "utils/platform/media_session.h"
#include "utils/platform/narrow_text.h"

namespace {

using Microsoft::WRL::ComPtr;
using vexa::utils::platform::MediaSession;
using vexa::utils::platform::narrowed;

/// The display name of an interface. No import library holds this constant.
constexpr DEVPROPKEY kNameProperty = {{0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}},
                                      10};

/// What MFEnumDeviceSources allocates.
struct ActivationObjects {
  ActivationObjects() = default;
  ActivationObjects(const ActivationObjects&) = delete;
  ActivationObjects& operator=(const ActivationObjects&) = delete;
  ~ActivationObjects() {
    for (UINT32 index = 0; index < count; ++index) {
      if (objects[index]) objects[index]->Release();
      objects[index] = nullptr;
    }
    CoTaskMemFree(objects);
  }

  IMFActivate** objects = nullptr;
  UINT32 count = 0;
};

/// The symbolic link of a video capture source in the host's normal form.
std::optional<std::string> captureLink(IMFActivate& source) {
  WCHAR* text = nullptr;
  UINT32 length = 0;
  if (FAILED(source.GetAllocatedString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, &text, &length))) {
    return std::nullopt;
  }
  // Deliberate: the text is not given to CoTaskMemFree, only the array of sources is. That pairing is required; one
  // path for each device and scan is its price.
  std::string link = narrowed(text);
  get_string_handler()->normaliseDevicePath(link);
  return link;
}

CameraType typeFromPath(const std::string& path) {
  if (path.starts_with(kUsbDevicePathPrefix)) return CameraType::kUsb;
  if (path.starts_with(kDisplayDevicePathPrefix)) return CameraType::kInternal;
  return CameraType::kNotDetermined;
}

}  // namespace

std::uint32_t WinCameraScanner::scan() {
  static_cast<void>(clear());  // cannot fail
  const MediaSession session(MediaSession::Ending::kWhatStarted);
  if (!session.isStarted()) return 1;

  // Without links no interface matches: a failure of the enumeration is an empty list.
  enumerateCaptureLinks();
  return buildCameraList() ? 0 : 1;
}

bool WinCameraScanner::hasCameras() {
  const MediaSession session(MediaSession::Ending::kWhatStarted);
  if (!session.isStarted()) return false;

  enumerateCaptureLinks();
  return !captureLinks.empty();
}

std::uint32_t WinCameraScanner::clear() {
  cameras.clear();
  return 0;
}

std::vector<CameraInfo> WinCameraScanner::getCameras() {
  return cameras;
}

void WinCameraScanner::enumerateCaptureLinks() {
  captureLinks.clear();

  // Declared before the attributes, so that it is released after them.
  ActivationObjects sources;
  ComPtr<IMFAttributes> attributes;
  if (FAILED(MFCreateAttributes(&attributes, 1)) ||
      FAILED(attributes->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID)) ||
      FAILED(MFEnumDeviceSources(attributes.Get(), &sources.objects, &sources.count))) {
    return;
  }

  for (UINT32 index = 0; index < sources.count; ++index) {
    if (auto link = captureLink(*sources.objects[index])) captureLinks.insert(*std::move(link));
  }
}

bool WinCameraScanner::buildCameraList() {
  bool anySearchSucceeded = false;
  for (const GUID& deviceClass : DeviceClassList) {
    for (const GUID& interfaceClass : kCameraInterfaceClassList) {
      DeviceMap devices;
      if (deviceScanner.search(WinDeviceScanFilter(interfaceClass, deviceClass), devices) != 0) continue;
      anySearchSucceeded = true;
      // Deliberate: the last batch comes first. That is required; a camera's place in the list is part of its
      // identifier.
      std::vector<CameraInfo> batch = buildBatch(devices);
      cameras.insert(cameras.begin(), std::make_move_iterator(batch.begin()), std::make_move_iterator(batch.end()));
    }
  }
  return anySearchSucceeded;
}

std::vector<CameraInfo> WinCameraScanner::buildBatch(const DeviceMap& devices) {
  std::vector<CameraInfo> batch;
  for (const auto& [id, device] : devices) {
    // Deliberate: one record for all interfaces of a device. What a later interface cannot read, it has from the one
    // before.
    CameraInfo record;
    record.description = property(device.deviceIndex, SPDRP_DEVICEDESC).value_or("");
    record.manufacturer = property(device.deviceIndex, SPDRP_MFG).value_or("");
    record.classGuid = property(device.deviceIndex, SPDRP_CLASSGUID).value_or("");
    record.hardwareId = property(device.deviceIndex, SPDRP_HARDWAREID).value_or("");

    for (const std::string& path : device.interfacePaths) {
      record.type = typeFromPath(path);
      if (record.type == CameraType::kNotDetermined) continue;
      std::string link = path;
      get_string_handler()->normaliseDevicePath(link);
      if (!captureLinks.contains(link)) continue;

      record.name = cameraName(record, device.deviceIndex, path);
      record.devicePath = path;
      record.driverKey = property(device.deviceIndex, SPDRP_DRIVER).value_or(record.driverKey);
      if (auto version = WinDeviceInterfaceScanner::readDriverVersion(record.driverKey)) {
        driverVersionScratch = *std::move(version);
        record.driverVersion = driverVersionScratch;
      }
      batch.push_back(record);
    }
  }
  return batch;
}

std::optional<std::string> WinCameraScanner::property(std::uint32_t deviceIndex, std::uint32_t number) {
  return takeText([&](char** text) { return deviceScanner.getRegistryProperty(deviceIndex, number, text); });
}

std::string WinCameraScanner::cameraName(const CameraInfo& record, std::uint32_t deviceIndex, const std::string& path) {
  if (auto name = property(deviceIndex, SPDRP_FRIENDLYNAME)) return *std::move(name);
  auto name = takeText([&](char** text) { return deviceScanner.getInterfaceProperty(path, kNameProperty, text); });
  if (name) return *std::move(name);
  // Deliberate: no blank between the two. That is required; the camera's identifier is derived from this name.
  return record.manufacturer + (record.type == CameraType::kInternal ? "Internal Camera" : "USB Camera");
}
