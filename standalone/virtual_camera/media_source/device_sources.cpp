// Media Foundation's list of capture sources and the opening of one, which Wine does not have: the planted cameras.
// Everything else of Media Foundation is the system's.

#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <QtDebug>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>
#include <vector>

#include "standalone/virtual_camera/media_source/camera_activate.h"
#include "standalone/virtual_camera/media_source/camera_source.h"
#include "standalone/virtual_camera/planter/device_presence.h"
#include "standalone/virtual_camera/planter/planted_cameras.h"

using Microsoft::WRL::ComPtr;

namespace {

// The cameras that are plugged in.
HRESULT readPresentCameras(std::vector<PlantedCamera>& cameras) {
  PlantedCameras planted = plantedCameras();
  if (!planted.error.isEmpty()) {
    qWarning("%s", qPrintable(planted.error));
    return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
  }
  std::erase_if(planted.cameras, [](const PlantedCamera& camera) { return !isPluggedIn(camera.symbolicLink); });
  cameras = std::move(planted.cameras);
  return S_OK;
}

// What the faults have before a camera can be opened.
HRESULT letOpen(const PlantedCamera& camera) {
  const CameraDescription& description = camera.description;
  int opens = 0;
  try {
    opens = countOpen(camera.symbolicLink);
  } catch (const std::system_error& error) {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(error.code().value()));
  }
  if (const Fault* slow = description.fault(FaultKind::kSlowOpen)) {
    std::this_thread::sleep_for(std::chrono::duration<double>(slow->duration));
  }
  const Fault* busy = description.fault(FaultKind::kBusy);
  if (busy && opens <= busy->times) return HRESULT_FROM_WIN32(ERROR_BUSY);
  return description.fault(FaultKind::kNoOpen) ? E_ACCESSDENIED : S_OK;
}

HRESULT checkSourceType(IMFAttributes* attributes, bool& isVideo) {
  if (!attributes) return E_INVALIDARG;
  GUID type{};
  const HRESULT status = attributes->GetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, &type);
  isVideo = SUCCEEDED(status) && type == MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID;
  return status;
}

HRESULT readSymbolicLink(IMFAttributes* attributes, QString& link) {
  wchar_t* text = nullptr;
  UINT32 length = 0;
  const HRESULT status =
      attributes->GetAllocatedString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, &text, &length);
  if (FAILED(status)) return status;
  link = QString::fromWCharArray(text, static_cast<qsizetype>(length));
  CoTaskMemFree(text);
  return S_OK;
}

}  // namespace

HRESULT WINAPI MFEnumDeviceSources(IMFAttributes* attributes, IMFActivate*** sources, UINT32* count) {
  if (!sources || !count) return E_INVALIDARG;
  *sources = nullptr;
  *count = 0;
  bool isVideo = false;
  HRESULT status = checkSourceType(attributes, isVideo);
  if (FAILED(status) || !isVideo) return status;
  std::vector<PlantedCamera> cameras;
  status = readPresentCameras(cameras);
  if (FAILED(status) || cameras.empty()) return status;

  std::vector<ComPtr<IMFActivate>> made(cameras.size());
  for (std::size_t i = 0; i < cameras.size(); ++i) {
    status = CameraActivate::create(cameras[i].description, cameras[i].symbolicLink, &made[i]);
    if (FAILED(status)) return status;
  }
  auto* list = static_cast<IMFActivate**>(CoTaskMemAlloc(made.size() * sizeof(IMFActivate*)));
  if (!list) return E_OUTOFMEMORY;
  std::ranges::transform(made, list, [](ComPtr<IMFActivate>& activate) { return activate.Detach(); });
  *sources = list;
  *count = static_cast<UINT32>(made.size());
  return S_OK;
}

HRESULT WINAPI MFCreateDeviceSource(IMFAttributes* attributes, IMFMediaSource** source) {
  if (!source) return E_INVALIDARG;
  *source = nullptr;
  bool isVideo = false;
  HRESULT status = checkSourceType(attributes, isVideo);
  if (FAILED(status)) return status;
  if (!isVideo) return MF_E_UNSUPPORTED_SERVICE;
  QString link;
  status = readSymbolicLink(attributes, link);
  if (FAILED(status)) return status;
  std::vector<PlantedCamera> cameras;
  status = readPresentCameras(cameras);
  if (FAILED(status)) return status;

  const auto camera = std::ranges::find_if(cameras, [&link](const PlantedCamera& present) {
    return present.symbolicLink.compare(link, Qt::CaseInsensitive) == 0;
  });
  if (camera == cameras.end()) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
  const int arrival = arrivalOf(camera->symbolicLink);
  status = letOpen(*camera);
  if (FAILED(status)) return status;
  // A camera may be pulled out meanwhile.
  if (arrival <= 0 || arrivalOf(camera->symbolicLink) != arrival) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
  return CameraSource::create(camera->description, camera->symbolicLink, arrival, source);
}
