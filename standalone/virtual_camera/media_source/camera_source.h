#pragma once

#include <memory>
#include <mutex>

#include "standalone/virtual_camera/description/camera_description.h"
#include "standalone/virtual_camera/description/stream_state.h"
#include "standalone/virtual_camera/media_source/camera_stream.h"
#include "standalone/virtual_camera/media_source/com_object.h"
#include "standalone/virtual_camera/media_source/event_generator.h"
#include "standalone/virtual_camera/media_source/frame_pacer.h"
#include "standalone/virtual_camera/pictures/picture_source.h"

/// A camera as a live media source with one video stream. Frames come at the camera's rate, one for each request that
/// waits at a frame time, until the camera is unplugged; that it is plugged in again does not bring them back. Each
/// start begins the picture's time and the time line of the faults anew.
class CameraSource final : public ComObject<EventGenerator<IMFMediaSource>, IMFMediaEventGenerator, IMFMediaSource> {
 public:
  /// `symbolicLink` and `arrival` are those of a planted camera. The caller gets the one reference.
  static HRESULT create(const CameraDescription& camera, const QString& symbolicLink, int arrival,
                        IMFMediaSource** source);

  HRESULT STDMETHODCALLTYPE GetCharacteristics(DWORD* characteristics) override;
  HRESULT STDMETHODCALLTYPE CreatePresentationDescriptor(IMFPresentationDescriptor** descriptor) override;
  HRESULT STDMETHODCALLTYPE Start(IMFPresentationDescriptor* descriptor, const GUID* timeFormat,
                                  const PROPVARIANT* position) override;
  HRESULT STDMETHODCALLTYPE Stop() override;
  HRESULT STDMETHODCALLTYPE Pause() override;
  HRESULT STDMETHODCALLTYPE Shutdown() override;

 private:
  CameraSource(CameraDescription camera, QString symbolicLink, int arrival);
  ~CameraSource() override;

  HRESULT initialise();
  void finishStop(std::unique_lock<std::mutex> lock);
  void frameTime(quint64 number, double seconds);
  void deliverFrame(quint64 number, double seconds, const StreamState& state);
  void deliverFailure(FaultKind cause);
  QImage drawFrame(quint64 number, double seconds, const StreamState& state);

  const CameraDescription camera;
  const QString symbolicLink;
  const int arrival;  // by which the camera was here when it was opened
  CameraStream stream;

  std::mutex control;  // held by Start, Stop and Shutdown; the pacer never waits for it
  bool isShutDown = false;
  bool wasStarted = false;
  bool isRunning = false;

  // The pacer's thread only, while it runs.
  std::unique_ptr<PictureSource> picture;
  QSize pictureSize;
  int ticksSent = 0;
  int unlockablesSent = 0;
  int othersRemoved = 0;
  bool ended = false;

  FramePacer pacer;  // last: it is gone before what its callback uses
};
