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

/// Captures one camera through Media Foundation on a worker thread of its own, keeps the newest frame and notices when
/// the camera is unplugged. It is the source reader's callback itself, hence reference counted: born with one
/// reference, which its component gives up through Release. `frameMutex` is always taken before `statusMutex`.
class WinCameraFrameCapturer : public CameraFrameCapturer, public IMFSourceReaderCallback {
 public:
  /// `owner` outlives the capturer's use.
  explicit WinCameraFrameCapturer(CameraComponent* owner);
  /// Does not stop a running capture.
  ~WinCameraFrameCapturer() override;

  CaptureStatus start() override;
  CaptureStatus getFrame(std::uint8_t*& buffer, std::uint32_t timeoutMs) override;
  CaptureStatus stop() override;
  int getFrameFormat(FrameFormat& format) override;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  /// Called on a work-queue thread of Media Foundation.
  STDMETHODIMP OnReadSample(HRESULT readStatus, DWORD streamIndex, DWORD streamFlags, LONGLONG timestamp,
                            IMFSample* sample) override;
  STDMETHODIMP OnFlush(DWORD streamIndex) override;
  STDMETHODIMP OnEvent(DWORD streamIndex, IMFMediaEvent* event) override;

  /// The device with this interface path (UTF-8) went away. Called on the worker thread.
  void onDeviceRemoved(std::string path);

 private:
  class ReaderOfWorker;

  /// The worker thread; `argument` is the capturer with a reference for it.
  static void runWorker(void* argument);
  void work();
  [[nodiscard]] CaptureStatus open(ReaderOfWorker& readerOfWorker);
  [[nodiscard]] HRESULT readNext();
  [[nodiscard]] CaptureStatus takeSample(HRESULT readStatus, DWORD streamFlags, IMFSample* sample);
  [[nodiscard]] CaptureStatus takeBuffer(IMFSample* sample);
  [[nodiscard]] CaptureStatus currentStatus();
  void setStatus(CaptureStatus value);

  std::string symbolicLink;
  std::unique_ptr<std::uint8_t[]> frameData;
  /// Only grows.
  std::uint32_t frameDataSize = 0;
  [[maybe_unused]] CameraComponent* component;
  Microsoft::WRL::ComPtr<IMFSourceReader> reader;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool topDown = false;
  LONG refCount = 1;
  CaptureStatus status = CaptureOk;
  std::atomic<std::uint32_t> running{0};
  std::atomic<std::uint32_t> ready{0};
  std::unique_ptr<QMutex> statusMutex;
  std::unique_ptr<QMutex> frameMutex;
  std::uint64_t thread = 0;
  std::uint32_t threadId = 0;
};
