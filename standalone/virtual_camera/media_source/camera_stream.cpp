#include "standalone/virtual_camera/media_source/camera_stream.h"

#include <mferror.h>

#include <utility>

HRESULT CameraStream::initialise(IMFMediaType* type) {
  if (FAILED(queueStatus)) return queueStatus;
  HRESULT status = MFCreateStreamDescriptor(0, 1, &type, &descriptor);
  if (FAILED(status)) return status;
  Microsoft::WRL::ComPtr<IMFMediaTypeHandler> handler;
  status = descriptor->GetMediaTypeHandler(&handler);
  return FAILED(status) ? status : handler->SetCurrentMediaType(type);
}

HRESULT CameraStream::QueryInterface(REFIID iid, void** object) {
  if (!object) return E_POINTER;
  if (iid == __uuidof(IUnknown) || iid == __uuidof(IMFMediaEventGenerator) || iid == __uuidof(IMFMediaStream)) {
    AddRef();
    *object = static_cast<IMFMediaStream*>(this);
    return S_OK;
  }
  *object = nullptr;
  return E_NOINTERFACE;
}

HRESULT CameraStream::GetMediaSource(IMFMediaSource** source) {
  if (!source) return E_POINTER;
  const std::lock_guard lock(mutex);
  if (state == State::kShutDown) return MF_E_SHUTDOWN;
  owner.AddRef();
  *source = &owner;
  return S_OK;
}

HRESULT CameraStream::GetStreamDescriptor(IMFStreamDescriptor** streamDescriptor) {
  if (!streamDescriptor) return E_POINTER;
  const std::lock_guard lock(mutex);
  if (state == State::kShutDown) return MF_E_SHUTDOWN;
  return descriptor.CopyTo(streamDescriptor);
}

HRESULT CameraStream::RequestSample(IUnknown* token) {
  const std::lock_guard lock(mutex);
  switch (state) {
    case State::kShutDown:
      return MF_E_SHUTDOWN;
    case State::kStopped:
      return MF_E_MEDIA_SOURCE_WRONGSTATE;
    case State::kEnded:
      return MF_E_END_OF_STREAM;
    case State::kRunning:
      break;
  }
  requests.emplace_back(token);
  return S_OK;
}

bool CameraStream::hasRequest() {
  const std::lock_guard lock(mutex);
  return !requests.empty();
}

void CameraStream::start(const PROPVARIANT* position) {
  {
    const std::lock_guard lock(mutex);
    state = State::kRunning;
  }
  queueEvent(MEStreamStarted, position);
}

void CameraStream::stop() {
  takeRequests(State::kStopped);
  queueEvent(MEStreamStopped);
}

void CameraStream::shutdown() {
  takeRequests(State::kShutDown);
  if (events) events->Shutdown();
}

void CameraStream::deliver(IMFSample* sample) {
  Token token;
  {
    const std::lock_guard lock(mutex);
    if (requests.empty()) return;
    token = std::move(requests.front());
    requests.pop_front();
  }
  if (token) sample->SetUnknown(MFSampleExtension_Token, token.Get());
  queueEvent(MEMediaSample, sample);
}

void CameraStream::tick(LONGLONG time) {
  PROPVARIANT value{};
  value.vt = VT_I8;
  value.hVal.QuadPart = time;
  queueEvent(MEStreamTick, &value);
}

void CameraStream::end() {
  takeRequests(State::kEnded);
  queueEvent(MEEndOfStream);
}

std::deque<CameraStream::Token> CameraStream::takeRequests(State next) {
  const std::lock_guard lock(mutex);
  state = next;
  return std::exchange(requests, {});
}
