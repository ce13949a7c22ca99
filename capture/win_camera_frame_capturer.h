#pragma once

#include <mfidl.h>
#include <mfreadwrite.h>
#include <wrl/client.h>

#include <QMutex>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "capture/camera_frame_capturer.h"

class CameraComponent;
struct CameraReader;

/// Captures one camera through Media Foundation on a worker thread of its own, keeps the newest frame and notices when
/// the camera is unplugged. It is the source reader's callback itself, hence reference counted: born with one
/// reference, which its component gives up through Release. `frameMutex` is always taken before `statusMutex`.
class WinCameraFrameCapturer : public CameraFrameCapturer, public IMFSourceReaderCallback {
 public:
  /// `owner` outlives the capturer's use.
  explicit WinCameraFrameCapturer(CameraComponent* owner);
  /// Does not stop a running capture.
  ~WinCameraFrameCapturer() override;

  [[nodiscard]] CaptureStatus start() override;
  [[nodiscard]] CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) override;
  [[nodiscard]] CaptureStatus stop() override;
  [[nodiscard]] int getFrameFormat(FrameFormat& format) override;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  /// Called on a work-queue thread of Media Foundation.
  STDMETHODIMP OnReadSample(HRESULT readStatus, DWORD streamIndex, DWORD streamFlags, LONGLONG timestamp,
                            IMFSample* sample) override;
  STDMETHODIMP OnFlush(DWORD) override { return S_OK; }
  STDMETHODIMP OnEvent(DWORD, IMFMediaEvent*) override { return S_OK; }

 private:
  /// What the worker thread does, from start-up to clean-up. No worker outlives the `start` or `stop` that ends it.
  void work();
  /// Makes the worker and waits until its start-up is over; returns the start-up's status.
  [[nodiscard]] CaptureStatus startWorker();
  /// Stores an opened reader and its format; on the worker, while `startWorker` holds `frameMutex` for it.
  void keep(const CameraReader& opened);
  /// Asks for the next sample; MF_E_SHUTDOWN when the reader is gone.
  [[nodiscard]] HRESULT readNext();
  /// Turns what the reader delivered into the status that it stands for.
  [[nodiscard]] CaptureStatus takeSample(HRESULT readStatus, DWORD streamFlags, IMFSample* sample);
  /// Copies a sample's first buffer into `frameData`; a failed HRESULT of the buffer is the status.
  [[nodiscard]] CaptureStatus takeBuffer(IMFSample* sample);
  /// Replaces `frameData` by a larger block; false, and there is none, when the memory is not to be had.
  [[nodiscard]] bool growFrame(std::uint32_t size);
  /// On the worker: the device with this interface path (UTF-8) went away.
  void onDeviceRemoved(std::string path);
  /// Reads `status` under its lock.
  [[nodiscard]] CaptureStatus currentStatus();
  /// Writes `status` under its lock.
  void setStatus(CaptureStatus value);

  /// Never changes.
  std::string symbolicLink;
  /// The newest frame, as the camera delivered it. Under `frameMutex`.
  std::unique_ptr<std::uint8_t[]> frameData;
  /// Only grows. Under `frameMutex`.
  std::uint32_t frameDataSize = 0;
  /// Not owned, never changes.
  [[maybe_unused]] CameraComponent* component;
  /// Null outside a run. Under `frameMutex`; the worker, which alone writes it, also reads it without.
  Microsoft::WRL::ComPtr<IMFSourceReader> reader;
  /// The negotiated format. Written before `ready`, under the lock that `startWorker` holds; then only read.
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool topDown = false;
  /// Changed by interlocked operations only.
  LONG refCount = 1;
  /// Under `statusMutex`; `startWorker` first writes it without, when no other thread is there, and `getFrame` looks at
  /// it without whether it is worth while to lock.
  std::atomic<CaptureStatus> status = CaptureOk;
  /// 1 while frames are being read. Atomic, no lock.
  std::atomic<std::uint32_t> running{0};
  /// 1 once the worker's start-up is complete. Atomic, no lock.
  std::atomic<std::uint32_t> ready{0};
  /// Guards `status`. Nothing else is locked while it is held.
  std::unique_ptr<QMutex> statusMutex;
  /// Guards the frame and the reader; `startWorker` holds it throughout the start-up, the callback throughout a sample.
  std::unique_ptr<QMutex> frameMutex;
  /// The host's handle of the worker. Only the thread that starts and stops uses it.
  std::uint64_t thread = 0;
  /// The system's identifier of the worker, for its quit message. Likewise.
  std::uint32_t threadId = 0;
};
