#pragma once

#include <deque>
#include <mutex>

#include "standalone/virtual_camera/media_source/event_generator.h"

/// The one stream of a camera source. It is a part of its source and lives as long: references to the stream count as
/// references to the source. The calls that are not COM's are the source's.
class CameraStream final : public EventGenerator<IMFMediaStream> {
 public:
  explicit CameraStream(IMFMediaSource& source) : owner(source) {}
  ~CameraStream() override = default;

  /// Makes the descriptor. A failure means that the stream must not be used.
  HRESULT initialise(IMFMediaType* type);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return owner.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner.Release(); }

  HRESULT STDMETHODCALLTYPE GetMediaSource(IMFMediaSource** source) override;
  HRESULT STDMETHODCALLTYPE GetStreamDescriptor(IMFStreamDescriptor** streamDescriptor) override;
  /// One sample answers one request; `token`, which may be null, comes back with it.
  HRESULT STDMETHODCALLTYPE RequestSample(IUnknown* token) override;

  [[nodiscard]] bool hasRequest();

  void start(const PROPVARIANT* position);
  /// Drops the requests that are not answered yet.
  void stop();
  void shutdown();
  /// Answers the oldest request.
  void deliver(IMFSample* sample);
  /// Says that there is no frame now. The request stays and the next frame answers it: a reader does not repeat it.
  void tick(LONGLONG time);
  void changeFormat(IMFMediaType* type) { queueEvent(MEStreamFormatChanged, type); }
  void end();

 private:
  using Token = Microsoft::WRL::ComPtr<IUnknown>;
  enum class State { kStopped, kRunning, kEnded, kShutDown };

  std::deque<Token> takeRequests(State next);

  IMFMediaSource& owner;
  Microsoft::WRL::ComPtr<IMFStreamDescriptor> descriptor;
  std::mutex mutex;  // never held while a reference is released: that may run anybody's code
  State state = State::kStopped;
  std::deque<Token> requests;
};
