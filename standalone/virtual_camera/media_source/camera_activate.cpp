#include "standalone/virtual_camera/media_source/camera_activate.h"

#include <mfidl.h>

#include <utility>

using Microsoft::WRL::ComPtr;

HRESULT CameraActivate::create(const CameraDescription& camera, const QString& symbolicLink, IMFActivate** activate) {
  ComPtr<CameraActivate> made(new CameraActivate());
  if (FAILED(made->storeStatus)) return made->storeStatus;
  made->SetGUID(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE, MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_GUID);
  made->SetString(MF_DEVSOURCE_ATTRIBUTE_FRIENDLY_NAME, camera.name.toStdWString().c_str());
  made->SetString(MF_DEVSOURCE_ATTRIBUTE_SOURCE_TYPE_VIDCAP_SYMBOLIC_LINK, symbolicLink.toStdWString().c_str());
  *activate = made.Detach();
  return S_OK;
}

HRESULT CameraActivate::ActivateObject(REFIID iid, void** object) {
  if (!source) {
    const HRESULT status = MFCreateDeviceSource(store.Get(), &source);
    if (FAILED(status)) return status;
  }
  return source->QueryInterface(iid, object);
}

HRESULT CameraActivate::ShutdownObject() {
  if (const ComPtr<IMFMediaSource> opened = std::exchange(source, nullptr)) opened->Shutdown();
  return S_OK;
}

HRESULT CameraActivate::DetachObject() {
  source.Reset();
  return S_OK;
}
