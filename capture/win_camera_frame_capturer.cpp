#include "capture/win_camera_frame_capturer.h"

#include <mfapi.h>
#include <mferror.h>
#include <shlwapi.h>

#include <QMutexLocker>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <new>
#include <span>
#include <utility>

#include "capture/buffer_lock.h"
#include "capture/camera_reader.h"
#include "capture/frame_copy.h"
#include "capture/reader_loan.h"
#include "capture/removal_watcher.h"
#include "discovery/camera_component.h"
#include "module/host_services.h"
#include "utils/platform/media_session.h"

using Microsoft::WRL::ComPtr;
using vexa::utils::platform::MediaSession;

namespace {

constexpr DWORD kFirstVideoStream = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
constexpr int kWorkerPriority = 4;
constexpr DWORD kEndOfReading = DWORD{MF_SOURCE_READERF_ENDOFSTREAM} |
                                DWORD{MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED} | DWORD{MF_SOURCE_READERF_ERROR};

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

  const CaptureStatus startStatus = startWorker();
  if (startStatus != CaptureOk) {
    // The window class belongs to the process: the next start, of any capturer, must not meet what is left of this one.
    get_thread()->wait(thread);
    return startStatus;
  }
  // The format can be asked for only while running, and callers do so at once.
  while (running != 1) get_timer()->sleep(0);
  return CaptureOk;
}

CaptureStatus WinCameraFrameCapturer::startWorker() {
  // Held until the start-up is over, so that the worker cannot read before the status is back at "no frame yet".
  const QMutexLocker frameLock(frameMutex.get());
  running = 0;
  ready = 0;
  status = CaptureNoFrameYet;

  ThreadService* threads = get_thread();
  const auto work = [](void* capturer) { static_cast<WinCameraFrameCapturer*>(capturer)->work(); };
  threads->create(&thread, 0, work, this, "WinCameraFrameCapturer");
  threadId = threads->lastThreadId;
  threads->setPriority(thread, kWorkerPriority);

  while (ready != 1) get_timer()->sleep(0);
  const CaptureStatus startStatus = currentStatus();
  setStatus(CaptureNoFrameYet);
  return startStatus;
}

CaptureStatus WinCameraFrameCapturer::getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) {
  if (running != 1) return CaptureNotRunning;

  const std::uint32_t startTick = currentTick();
  for (;;) {
    if (get_timer()->elapsedSeconds(startTick, currentTick()) * 1000.0 > timeoutMs) return CaptureTimedOut;

    // Looks without a lock: who waits here would have the locks most of the time, and the callback would wait for them.
    if (status == CaptureNoFrameYet) continue;
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

void WinCameraFrameCapturer::work() {
  if (symbolicLink.empty()) return;

  // Deliberate: undone in reverse on every way out, first the watcher, then the reader, then Media Foundation and COM.
  // The order is required; it costs two calls too many when COM or Media Foundation did not come up.
  const MediaSession session(MediaSession::Ending::kBoth);
  CameraReader opened;
  const ReaderLoan loan(reader, *frameMutex);
  RemovalWatcher watcher([this](std::string path) { onDeviceRemoved(std::move(path)); });
  if (!session.isStarted()) return;

  CaptureStatus startStatus = openCameraReader(symbolicLink, this, opened);
  if (!watcher.watch()) startStatus = CaptureInitFailed;
  if (startStatus == CaptureOk) keep(opened);

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

void WinCameraFrameCapturer::keep(const CameraReader& opened) {
  reader = opened.reader;
  width = opened.format.width;
  height = opened.format.height;
  topDown = opened.format.topDown;
}

HRESULT WinCameraFrameCapturer::readNext() {
  if (!reader) return MF_E_SHUTDOWN;
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
  // Deliberate: a buffer that cannot be locked shows the frame before once more. It costs an old frame.
  if (!lock.data()) return CaptureOk;

  if (frameDataSize < length && !growFrame(length)) return CaptureFailed;
  std::copy_n(lock.data(), length, frameData.get());
  return CaptureOk;
}

bool WinCameraFrameCapturer::growFrame(std::uint32_t size) {
  // Freed first: two frames at once would double the peak. Nothing is thrown: the callback's caller is COM.
  frameData.reset();
  frameDataSize = 0;
  frameData.reset(new (std::nothrow) std::uint8_t[size]);
  if (!frameData) return false;
  frameDataSize = size;
  return true;
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
