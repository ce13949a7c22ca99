#pragma once

#include "standalone/virtual_camera/description/camera_description.h"
#include "standalone/virtual_camera/media_source/attribute_store.h"
#include "standalone/virtual_camera/media_source/com_object.h"

struct IMFMediaSource;

/// What an enumeration of capture sources tells of one camera: its source type, name and symbolic link. Activating it
/// opens the camera.
class CameraActivate final : public ComObject<AttributeStore<IMFActivate>, IMFAttributes, IMFActivate> {
 public:
  /// The caller gets the one reference.
  static HRESULT create(const CameraDescription& camera, const QString& symbolicLink, IMFActivate** activate);

  HRESULT STDMETHODCALLTYPE ActivateObject(REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE ShutdownObject() override;
  HRESULT STDMETHODCALLTYPE DetachObject() override;

 private:
  CameraActivate() = default;
  ~CameraActivate() override = default;

  Microsoft::WRL::ComPtr<IMFMediaSource> source;  // the one of an earlier ActivateObject
};
