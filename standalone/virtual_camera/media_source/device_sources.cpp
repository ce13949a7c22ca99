// Media Foundation's list of capture sources and the opening of one, which Wine does not have: the planted cameras.
// Everything else of Media Foundation is the system's.

#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <wrl/client.h>

#include <QtDebug>

#include <algorithm>
#include <vector>

#include "standalone/virtual_camera/description/camera_file.h"
#include "standalone/virtual_camera/description/camera_identity.h"
#include "standalone/virtual_camera/media_source/camera_activate.h"
#include "standalone/virtual_camera/media_source/camera_source.h"
#include "standalone/virtual_camera/planter/planted_description.h"

using Microsoft::WRL::ComPtr;

namespace {

HRESULT readPlantedCameras(std::vector<CameraDescription>& cameras) {
  const QString path = plantedDescriptionPath();
  if (path.isEmpty()) return S_OK;
  CameraFile file = readCameraFile(path);
  if (!file.error.isEmpty()) {
    qWarning("%s", qPrintable(file.error));
    return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
  }
  cameras = std::move(file.cameras);
  return S_OK;
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
  std::vector<CameraDescription> cameras;
  status = readPlantedCameras(cameras);
  if (FAILED(status) || cameras.empty()) return status;

  std::vector<ComPtr<IMFActivate>> made(cameras.size());
  for (std::size_t i = 0; i < cameras.size(); ++i) {
    status = CameraActivate::create(cameras[i], identityOf(cameras[i], i).symbolicLink, &made[i]);
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
  std::vector<CameraDescription> cameras;
  status = readPlantedCameras(cameras);
  if (FAILED(status)) return status;

  for (std::size_t i = 0; i < cameras.size(); ++i) {
    const QString ownLink = identityOf(cameras[i], i).symbolicLink;
    if (ownLink.compare(link, Qt::CaseInsensitive) != 0) continue;
    if (cameras[i].hasFault(FaultKind::kNoOpen)) return E_ACCESSDENIED;
    return CameraSource::create(cameras[i], ownLink, source);
  }
  return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
}
