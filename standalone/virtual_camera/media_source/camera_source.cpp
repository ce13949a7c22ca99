#include "standalone/virtual_camera/media_source/camera_source.h"

#include <mferror.h>

#include <cmath>
#include <utility>

#include "standalone/virtual_camera/media_source/frame_sample.h"
#include "standalone/virtual_camera/media_source/removal_broadcast.h"
#include "standalone/virtual_camera/media_source/sample_marks.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr double kUnitsPerSecond = 1e7;  // Media Foundation counts time in 100 ns

LONGLONG mediaTime(double seconds) {
  return std::llround(seconds * kUnitsPerSecond);
}

HRESULT statusOf(FaultKind cause) {
  switch (cause) {
    case FaultKind::kFirstReadFails:
      return MF_E_VIDEO_RECORDING_DEVICE_PREEMPTED;
    case FaultKind::kInvalidated:
      return MF_E_VIDEO_RECORDING_DEVICE_INVALIDATED;
    default:
      return HRESULT_FROM_WIN32(ERROR_GEN_FAILURE);
  }
}

bool isPosition(const PROPVARIANT* position) {
  return !position || position->vt == VT_EMPTY || position->vt == VT_I8;
}

}  // namespace

HRESULT CameraSource::create(const CameraDescription& camera, const QString& symbolicLink, IMFMediaSource** source) {
  ComPtr<CameraSource> made(new CameraSource(camera, symbolicLink));
  const HRESULT status = made->initialise();
  if (FAILED(status)) return status;
  *source = made.Detach();
  return S_OK;
}

CameraSource::CameraSource(CameraDescription description, QString link)
    : camera(std::move(description)), symbolicLink(std::move(link)), stream(*this) {}

CameraSource::~CameraSource() {
  Shutdown();
}

HRESULT CameraSource::initialise() {
  if (FAILED(queueStatus)) return queueStatus;
  ComPtr<IMFMediaType> type;
  const HRESULT status = makeMediaType(camera, camera.size, &type);
  return FAILED(status) ? status : stream.initialise(type.Get());
}

HRESULT CameraSource::GetCharacteristics(DWORD* characteristics) {
  if (!characteristics) return E_POINTER;
  const std::lock_guard lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  *characteristics = MFMEDIASOURCE_IS_LIVE;
  return S_OK;
}

HRESULT CameraSource::CreatePresentationDescriptor(IMFPresentationDescriptor** descriptor) {
  if (!descriptor) return E_POINTER;
  const std::lock_guard lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  ComPtr<IMFStreamDescriptor> streamDescriptor;
  HRESULT status = stream.GetStreamDescriptor(&streamDescriptor);
  if (FAILED(status)) return status;
  ComPtr<IMFPresentationDescriptor> made;
  status = MFCreatePresentationDescriptor(1, streamDescriptor.GetAddressOf(), &made);
  if (FAILED(status)) return status;
  status = made->SelectStream(0);
  if (FAILED(status)) return status;
  *descriptor = made.Detach();
  return S_OK;
}

HRESULT CameraSource::Start(IMFPresentationDescriptor* descriptor, const GUID* timeFormat,
                            const PROPVARIANT* position) {
  if (!descriptor) return E_INVALIDARG;
  if (timeFormat && *timeFormat != GUID_NULL) return MF_E_UNSUPPORTED_TIME_FORMAT;
  if (!isPosition(position)) return MF_E_UNSUPPORTED_TIME_FORMAT;
  const std::lock_guard lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;

  pacer.stop();
  ticksSent = 0;
  removalSent = false;
  ended = false;
  pictureSize = camera.size;
  picture = makePictureSource(camera.picture, pictureSize);

  HRESULT status = queueEvent(wasStarted ? MEUpdatedStream : MENewStream, static_cast<IMFMediaStream*>(&stream));
  if (FAILED(status)) return status;
  wasStarted = true;
  status = queueEvent(MESourceStarted, position);
  if (FAILED(status)) return status;
  stream.start(position);
  pacer.start(camera.framesPerSecond, [this](quint64 number, double seconds) { frameTime(number, seconds); });
  return S_OK;
}

HRESULT CameraSource::Stop() {
  const std::lock_guard lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  pacer.stop();
  stream.stop();
  return queueEvent(MESourceStopped);
}

HRESULT CameraSource::Pause() {
  const std::lock_guard lock(control);
  return isShutDown ? MF_E_SHUTDOWN : MF_E_INVALID_STATE_TRANSITION;
}

HRESULT CameraSource::Shutdown() {
  const std::lock_guard lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  isShutDown = true;
  pacer.stop();
  stream.shutdown();
  return events ? events->Shutdown() : S_OK;
}

void CameraSource::frameTime(quint64 number, double seconds) {
  if (ended) return;
  const StreamState state = streamStateAt(camera.faults, seconds);
  if (state.removed && !removalSent) {
    removalSent = true;
    broadcastRemoval(symbolicLink.toStdWString());
  }
  // Also in a stall: a tick says that there is a gap.
  if (state.ticks > ticksSent && stream.hasRequest()) {
    ++ticksSent;
    stream.tick(mediaTime(seconds));
    return;
  }
  switch (state.kind) {
    case StreamState::Kind::kSilence:
      return;
    case StreamState::Kind::kEnded:
      ended = true;
      stream.end();
      queueEvent(MEEndOfPresentation);
      return;
    case StreamState::Kind::kFailing:
      deliverFailure(state.cause);
      return;
    case StreamState::Kind::kFrames:
      break;
  }
  if (stream.hasRequest()) deliverFrame(number, seconds, state.size.value_or(camera.size));
}

void CameraSource::deliverFrame(quint64 number, double seconds, QSize size) {
  const bool isNewSize = size != pictureSize;
  if (isNewSize) {
    pictureSize = size;
    picture = makePictureSource(camera.picture, size);
    ComPtr<IMFMediaType> type;
    if (SUCCEEDED(makeMediaType(camera, size, &type))) stream.changeFormat(type.Get());
  }
  ComPtr<IMFSample> sample;
  if (FAILED(makeFrameSample(picture->frameAt(number, seconds), camera.stride, mediaTime(seconds),
                             mediaTime(1 / camera.framesPerSecond), &sample))) {
    return;
  }
  if (isNewSize) sample->SetUINT32(sample_marks::kMediaTypeChanged, 1);
  stream.deliver(sample.Get());
}

void CameraSource::deliverFailure(FaultKind cause) {
  ComPtr<IMFSample> sample;
  if (FAILED(MFCreateSample(&sample))) return;
  sample->SetUINT32(sample_marks::kReadFails, static_cast<UINT32>(statusOf(cause)));
  sample->SetSampleTime(0);
  stream.deliver(sample.Get());
}
