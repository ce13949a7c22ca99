#include "standalone/virtual_camera/media_source/camera_source.h"

#include <mferror.h>

#include <chrono>
#include <cmath>
#include <thread>
#include <utility>

#include "standalone/virtual_camera/media_source/frame_sample.h"
#include "standalone/virtual_camera/media_source/plug_time_line.h"
#include "standalone/virtual_camera/media_source/sample_marks.h"
#include "standalone/virtual_camera/pictures/covered_lens.h"
#include "standalone/virtual_camera/planter/device_presence.h"

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
    case FaultKind::kReadRefused:
      return MF_E_HW_MFT_FAILED_START_STREAMING;
    default:
      return HRESULT_FROM_WIN32(ERROR_GEN_FAILURE);
  }
}

bool isPosition(const PROPVARIANT* position) {
  return !position || position->vt == VT_EMPTY || position->vt == VT_I8;
}

}  // namespace

HRESULT CameraSource::create(const CameraDescription& camera, const QString& symbolicLink, int arrival,
                             IMFMediaSource** source) {
  ComPtr<CameraSource> made(new CameraSource(camera, symbolicLink, arrival));
  const HRESULT status = made->initialise();
  if (FAILED(status)) return status;
  *source = made.Detach();
  return S_OK;
}

CameraSource::CameraSource(CameraDescription description, QString link, int arrivalNumber)
    : camera(std::move(description)), symbolicLink(std::move(link)), arrival(arrivalNumber), stream(*this) {}

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
  if (camera.fault(FaultKind::kReadRefused)) {
    made->SetUINT32(sample_marks::kReadRefused, static_cast<UINT32>(statusOf(FaultKind::kReadRefused)));
  }
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
  unlockablesSent = 0;
  othersRemoved = 0;
  ended = false;
  pictureSize = camera.size;
  picture = makePictureSource(camera.picture, pictureSize);

  HRESULT status = queueEvent(wasStarted ? MEUpdatedStream : MENewStream, static_cast<IMFMediaStream*>(&stream));
  if (FAILED(status)) return status;
  wasStarted = true;
  status = queueEvent(MESourceStarted, position);
  if (FAILED(status)) return status;
  stream.start(position);
  isRunning = true;
  if (camera.fault(FaultKind::kRemoved)) startPlugTimeLine(symbolicLink, arrival, camera.faults);
  pacer.start(
      camera.framesPerSecond, [this](quint64 number, double seconds) { frameTime(number, seconds); },
      [this](quint64 number, double seconds) { return streamStateAt(camera.faults, number, seconds).lateness; });
  return S_OK;
}

HRESULT CameraSource::Stop() {
  std::unique_lock lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  pacer.stop();
  stream.stop();
  const HRESULT status = queueEvent(MESourceStopped);
  finishStop(std::move(lock));
  return status;
}

HRESULT CameraSource::Pause() {
  const std::lock_guard lock(control);
  return isShutDown ? MF_E_SHUTDOWN : MF_E_INVALID_STATE_TRANSITION;
}

HRESULT CameraSource::Shutdown() {
  std::unique_lock lock(control);
  if (isShutDown) return MF_E_SHUTDOWN;
  isShutDown = true;
  pacer.stop();
  stream.shutdown();
  const HRESULT status = events ? events->Shutdown() : S_OK;
  finishStop(std::move(lock));
  return status;
}

// Takes a slow camera's time, during which other calls do not wait.
void CameraSource::finishStop(std::unique_lock<std::mutex> lock) {
  if (!std::exchange(isRunning, false)) return;
  lock.unlock();
  if (const Fault* slow = camera.fault(FaultKind::kSlowStop)) {
    std::this_thread::sleep_for(std::chrono::duration<double>(slow->duration));
  }
}

void CameraSource::frameTime(quint64 number, double seconds) {
  if (ended || arrivalOf(symbolicLink) != arrival) return;
  const StreamState state = streamStateAt(camera.faults, number, seconds);
  for (; othersRemoved < state.othersRemoved; ++othersRemoved) broadcastRemovalOfAnother();
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
  if (stream.hasRequest()) deliverFrame(number, seconds, state);
}

void CameraSource::deliverFrame(quint64 number, double seconds, const StreamState& state) {
  const QSize size = state.size.value_or(camera.size);
  const bool isNewSize = size != pictureSize;
  if (isNewSize) {
    pictureSize = size;
    picture = makePictureSource(camera.picture, size);
    ComPtr<IMFMediaType> type;
    if (SUCCEEDED(makeMediaType(camera, size, &type))) stream.changeFormat(type.Get());
  }
  const bool locksAtOnce = state.unlockables == unlockablesSent;
  if (!locksAtOnce) ++unlockablesSent;
  ComPtr<IMFSample> sample;
  if (FAILED(makeFrameSample(drawFrame(number, seconds, state),
                             {camera.format, camera.stride, state.share, locksAtOnce}, mediaTime(seconds),
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

QImage CameraSource::drawFrame(quint64 number, double seconds, const StreamState& state) {
  switch (state.view) {
    case StreamState::View::kBlack: {
      QImage black(pictureSize, QImage::Format_RGB32);
      black.fill(Qt::black);
      return black;
    }
    case StreamState::View::kCovered:
      return coveredLens(pictureSize, number);
    case StreamState::View::kScene:
      break;
  }
  if (!state.frozenAt) return picture->frameAt(number, seconds);
  return picture->frameAt(static_cast<quint64>(std::llround(*state.frozenAt * camera.framesPerSecond)),
                          *state.frozenAt);
}
