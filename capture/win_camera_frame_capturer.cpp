#include "capture/win_camera_frame_capturer.h"

#include <mfapi.h>
#include <mferror.h>
#include <shlwapi.h>

#include <QMutexLocker>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <span>

#include "capture/camera_reader.h"
#include "capture/frame_copy.h"
#include "capture/removal_watcher.h"
#include "discovery/camera_component.h"
#include "module/host_services.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
constexpr ULONG kMediaFoundationVersion = 0x20070;
constexpr int kWorkerPriority = 4;
constexpr DWORD kEndOfReading = DWORD{MF_SOURCE_READERF_ENDOFSTREAM} |
                                DWORD{MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED} | DWORD{MF_SOURCE_READERF_ERROR};

// COM and Media Foundation on the worker thread. Both are shut down at the end whether or not they came up: a worker
// whose start-up failed ends by the same path as every other.
class MediaSession {
 public:
  MediaSession() {
    const HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(hr) && hr != RPC_E_CHANGED_MODE) return;
    started = MFStartup(kMediaFoundationVersion, MFSTARTUP_FULL) == S_OK;
  }
  ~MediaSession() {
    MFShutdown();
    CoUninitialize();
  }
  MediaSession(const MediaSession&) = delete;
  MediaSession& operator=(const MediaSession&) = delete;

  [[nodiscard]] bool isStarted() const { return started; }

 private:
  bool started = false;
};

// The contents of a media buffer, for as long as it is locked.
class BufferLock {
 public:
  explicit BufferLock(IMFMediaBuffer* mediaBuffer) : buffer(mediaBuffer) {
    locked = SUCCEEDED(buffer->Lock(&bytes, nullptr, nullptr));
  }
  ~BufferLock() {
    if (locked) buffer->Unlock();
  }
  BufferLock(const BufferLock&) = delete;
  BufferLock& operator=(const BufferLock&) = delete;

  /// Null when the buffer could not be locked.
  [[nodiscard]] const BYTE* data() const { return locked ? bytes : nullptr; }

 private:
  IMFMediaBuffer* buffer;
  BYTE* bytes = nullptr;
  bool locked = false;
};

}  // namespace

// The reader that a worker opened, which it shares with the capturer until it ends.
class WinCameraFrameCapturer::ReaderOfWorker {
 public:
  explicit ReaderOfWorker(WinCameraFrameCapturer& capturer) : shared(capturer.reader), mutex(*capturer.frameMutex) {}
  // A callback under way must not see the reader vanish. The last reference goes outside the lock: it may wait for a
  // callback, which takes the same lock.
  ~ReaderOfWorker() {
    if (!own) return;
    const QMutexLocker lock(&mutex);
    // Another, if this worker's start failed and the next one was faster than its end.
    if (shared == own) shared.Reset();
  }
  ReaderOfWorker(const ReaderOfWorker&) = delete;
  ReaderOfWorker& operator=(const ReaderOfWorker&) = delete;

  /// Called while `start` holds the lock for this worker.
  void share(const ComPtr<IMFSourceReader>& opened) {
    own = opened;
    shared = opened;
  }

 private:
  ComPtr<IMFSourceReader>& shared;
  QMutex& mutex;
  ComPtr<IMFSourceReader> own;
};

namespace {

std::uint32_t currentTick() {
  return static_cast<std::uint32_t>(get_timer()->now());
}

}  // namespace

WinCameraFrameCapturer::WinCameraFrameCapturer(CameraComponent* owner)
    : symbolicLink(owner->getCameraInfo().devicePath),
      component(owner),
      statusMutex(std::make_unique<QMutex>()),
      frameMutex(std::make_unique<QMutex>()) {}

WinCameraFrameCapturer::~WinCameraFrameCapturer() = default;

CaptureStatus WinCameraFrameCapturer::start() {
  if (running == 1) return CaptureAlreadyRunning;

  CaptureStatus startStatus;
  {
    // Held until the start-up is over, so that the worker cannot read before the status is back at "no frame yet".
    const QMutexLocker frameLock(frameMutex.get());
    running = 0;
    ready = 0;
    status = CaptureNoFrameYet;

    // The worker's own reference: after a start-up that failed it still cleans up when its component may be gone.
    AddRef();
    ThreadService* threads = get_thread();
    threads->create(&thread, 0, runWorker, this, "WinCameraFrameCapturer");
    threadId = threads->lastThreadId;
    threads->setPriority(thread, kWorkerPriority);

    while (ready != 1) get_timer()->sleep(0);
    startStatus = currentStatus();
    setStatus(CaptureNoFrameYet);
  }
  // The format can be asked for only while running, and callers do so at once.
  while (startStatus == CaptureOk && running != 1) get_timer()->sleep(0);
  return startStatus;
}

CaptureStatus WinCameraFrameCapturer::getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) {
  if (running != 1) return CaptureNotRunning;

  const std::uint32_t startTick = currentTick();
  for (;;) {
    if (get_timer()->elapsedSeconds(startTick, currentTick()) * 1000.0 > timeoutMs) return CaptureTimedOut;

    // Never waits behind the callback's copy.
    if (!frameMutex->tryLock()) continue;
    const std::unique_lock<QMutex> frameLock(*frameMutex, std::adopt_lock);
    const CaptureStatus now = currentStatus();
    if (now == CaptureNoFrameYet) continue;
    if (now != CaptureOk) return now;

    // A driver may deliver less than a whole picture, yet the caller reads a whole one.
    const std::size_t picture = std::size_t{width} * height * 4;
    const std::size_t size = std::max<std::size_t>(frameDataSize, picture);
    buffer = new std::uint8_t[size];
    copyOpaque({frameData.get(), frameDataSize}, buffer);
    std::memset(buffer + frameDataSize, 0xFF, size - frameDataSize);
    return CaptureOk;
  }
}

CaptureStatus WinCameraFrameCapturer::stop() {
  if (running != 1) return CaptureNotRunning;

  running = 0;
  PostThreadMessageW(threadId, WM_QUIT, 0, 0);
  get_thread()->wait(thread);

  const QMutexLocker frameLock(frameMutex.get());
  const CaptureStatus last = currentStatus();
  running = 0;
  ready = 0;
  setStatus(CaptureNoFrameYet);
  return last;
}

int WinCameraFrameCapturer::getFrameFormat(FrameFormat& format) {
  if (ready != 1 || running != 1) return 1;
  format = {width, height, topDown};
  return 0;
}

void WinCameraFrameCapturer::runWorker(void* argument) {
  auto* const capturer = static_cast<WinCameraFrameCapturer*>(argument);
  capturer->work();
  capturer->Release();
}

void WinCameraFrameCapturer::work() {
  if (symbolicLink.empty()) return;

  // Undone in reverse: first the watcher, then the reader, then Media Foundation and COM.
  const MediaSession session;
  ReaderOfWorker readerOfWorker(*this);
  RemovalWatcher watcher(*this);
  if (!session.isStarted()) return;

  CaptureStatus startStatus = open(readerOfWorker);
  if (!watcher.watch()) startStatus = CaptureInitFailed;

  setStatus(startStatus);
  ready = 1;
  { const QMutexLocker waitForStart(frameMutex.get()); }
  if (startStatus != CaptureOk) return;

  running = 1;
  if (FAILED(readNext())) {
    setStatus(CaptureFailed);
    return;
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) != 0) DispatchMessageW(&message);
}

CaptureStatus WinCameraFrameCapturer::open(ReaderOfWorker& readerOfWorker) {
  CameraReader opened;
  const CaptureStatus result = openCameraReader(symbolicLink, this, opened);
  readerOfWorker.share(opened.reader);
  width = opened.format.width;
  height = opened.format.height;
  topDown = opened.format.topDown;
  return result;
}

HRESULT WinCameraFrameCapturer::readNext() {
  return reader->ReadSample(kFirstVideoStream, 0, nullptr, nullptr, nullptr, nullptr);
}

STDMETHODIMP WinCameraFrameCapturer::QueryInterface(REFIID iid, void** object) {
  const auto offset =
      reinterpret_cast<char*>(static_cast<IMFSourceReaderCallback*>(this)) - reinterpret_cast<char*>(this);
  const QITAB interfaces[] = {{&IID_IMFSourceReaderCallback, static_cast<int>(offset)}, {nullptr, 0}};
  return QISearch(this, interfaces, iid, object);
}

STDMETHODIMP_(ULONG) WinCameraFrameCapturer::AddRef() {
  return static_cast<ULONG>(InterlockedIncrement(&refCount));
}

STDMETHODIMP_(ULONG) WinCameraFrameCapturer::Release() {
  const LONG left = InterlockedDecrement(&refCount);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

STDMETHODIMP WinCameraFrameCapturer::OnReadSample(HRESULT readStatus, DWORD, DWORD streamFlags, LONGLONG,
                                                  IMFSample* sample) {
  const QMutexLocker frameLock(frameMutex.get());
  if (running != 1 || currentStatus() == CaptureDeviceRemoved) return S_OK;

  const CaptureStatus result = takeSample(readStatus, streamFlags, sample);
  setStatus(result);
  if (result != CaptureOk && result != CaptureNoFrameYet) return S_OK;
  if (FAILED(readNext())) setStatus(CaptureFailed);
  return S_OK;
}

CaptureStatus WinCameraFrameCapturer::takeSample(HRESULT readStatus, DWORD streamFlags, IMFSample* sample) {
  if (readStatus == MF_E_VIDEO_RECORDING_DEVICE_INVALIDATED) return CaptureDeviceRemoved;
  if (FAILED(readStatus) || (streamFlags & kEndOfReading)) return CaptureFailed;
  if (!sample) return CaptureNoFrameYet;  // a stream tick
  return takeBuffer(sample);
}

CaptureStatus WinCameraFrameCapturer::takeBuffer(IMFSample* sample) {
  ComPtr<IMFMediaBuffer> buffer;
  HRESULT hr = sample->GetBufferByIndex(0, &buffer);
  if (FAILED(hr)) return static_cast<CaptureStatus>(hr);
  DWORD length = 0;
  hr = buffer->GetCurrentLength(&length);
  if (FAILED(hr)) return static_cast<CaptureStatus>(hr);

  const BufferLock lock(buffer.Get());
  // The frame before is shown once more rather than none: one bad buffer is not a broken camera.
  if (!lock.data()) return CaptureOk;

  if (frameDataSize < length) {
    // Freed before the larger one is made: two frames at once would double the peak.
    frameData.reset();
    frameDataSize = length;
    frameData = std::make_unique_for_overwrite<std::uint8_t[]>(length);
  }
  std::copy_n(lock.data(), length, frameData.get());
  return CaptureOk;
}

STDMETHODIMP WinCameraFrameCapturer::OnFlush(DWORD) {
  return S_OK;
}

STDMETHODIMP WinCameraFrameCapturer::OnEvent(DWORD, IMFMediaEvent*) {
  return S_OK;
}

void WinCameraFrameCapturer::onDeviceRemoved(std::string path) {
  std::string ownPath = symbolicLink;
  get_string_handler()->normaliseBroadcastPath(path);
  get_string_handler()->normaliseBroadcastPath(ownPath);
  if (path != ownPath) return;

  const QMutexLocker frameLock(frameMutex.get());
  setStatus(CaptureDeviceRemoved);
}

CaptureStatus WinCameraFrameCapturer::currentStatus() {
  const QMutexLocker lock(statusMutex.get());
  return status;
}

void WinCameraFrameCapturer::setStatus(CaptureStatus value) {
  const QMutexLocker lock(statusMutex.get());
  status = value;
}
