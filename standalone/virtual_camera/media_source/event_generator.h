#pragma once

#include <mfapi.h>
#include <mfidl.h>
#include <wrl/client.h>

/// IMFMediaEventGenerator over an event queue of Media Foundation, for an interface that derives from it.
template <class Interface>
class EventGenerator : public Interface {
 public:
  EventGenerator() { queueStatus = MFCreateEventQueue(&events); }

  HRESULT STDMETHODCALLTYPE GetEvent(DWORD flags, IMFMediaEvent** event) override {
    return events->GetEvent(flags, event);
  }
  HRESULT STDMETHODCALLTYPE BeginGetEvent(IMFAsyncCallback* callback, IUnknown* state) override {
    return events->BeginGetEvent(callback, state);
  }
  HRESULT STDMETHODCALLTYPE EndGetEvent(IMFAsyncResult* result, IMFMediaEvent** event) override {
    return events->EndGetEvent(result, event);
  }
  HRESULT STDMETHODCALLTYPE QueueEvent(MediaEventType type, REFGUID extendedType, HRESULT status,
                                       const PROPVARIANT* value) override {
    return events->QueueEventParamVar(type, extendedType, status, value);
  }

 protected:
  virtual ~EventGenerator() = default;

  HRESULT queueEvent(MediaEventType type, const PROPVARIANT* value = nullptr) {
    return events->QueueEventParamVar(type, GUID_NULL, S_OK, value);
  }
  HRESULT queueEvent(MediaEventType type, IUnknown* value) {
    return events->QueueEventParamUnk(type, GUID_NULL, S_OK, value);
  }

  /// A failure means that there is no queue: the object must not be used.
  HRESULT queueStatus;
  Microsoft::WRL::ComPtr<IMFMediaEventQueue> events;
};
