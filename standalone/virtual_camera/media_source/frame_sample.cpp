#include "standalone/virtual_camera/media_source/frame_sample.h"

#include <mfapi.h>
#include <mferror.h>
#include <wrl/client.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "standalone/virtual_camera/media_source/unlockable_buffer.h"

using Microsoft::WRL::ComPtr;

namespace {

constexpr UINT32 kBytesPerPixel = 4;
constexpr QRgb kColourBits = 0x00FFFFFF;

// FOURCC "VCAM" in the form of all video subtypes.
constexpr GUID kUnknownFormat{0x4D414356, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

UINT64 pairOf(UINT32 high, UINT32 low) {
  return (UINT64{high} << 32) | low;
}

UINT64 rateOf(double framesPerSecond) {
  constexpr double kParts = 1000;
  if (framesPerSecond == std::floor(framesPerSecond)) return pairOf(static_cast<UINT32>(framesPerSecond), 1);
  return pairOf(static_cast<UINT32>(std::lround(framesPerSecond * kParts)), static_cast<UINT32>(kParts));
}

// As many pixels as there is room for.
void copyRows(const QImage& image, Stride stride, std::span<QRgb> destination) {
  const auto width = static_cast<std::size_t>(image.width());
  for (int row = 0; !destination.empty(); ++row) {
    const int from = stride == Stride::kNegative ? image.height() - 1 - row : row;
    const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(from));
    const std::size_t count = std::min(width, destination.size());
    std::transform(pixels, pixels + count, destination.begin(), [](QRgb pixel) { return pixel & kColourBits; });
    destination = destination.subspan(count);
  }
}

HRESULT makeFrameBuffer(const QImage& image, const FrameForm& form, IMFMediaBuffer** buffer) {
  const auto pixels = static_cast<std::size_t>(form.share * image.width() * image.height());
  const auto size = static_cast<DWORD>(pixels * kBytesPerPixel);
  ComPtr<IMFMediaBuffer> made;
  HRESULT status = MFCreateMemoryBuffer(size, &made);
  if (FAILED(status)) return status;
  BYTE* bytes = nullptr;
  status = made->Lock(&bytes, nullptr, nullptr);
  if (FAILED(status)) return status;
  copyRows(image, form.stride, {reinterpret_cast<QRgb*>(bytes), pixels});
  made->Unlock();
  made->SetCurrentLength(size);
  *buffer = form.locksAtOnce ? made.Detach() : ComPtr<IMFMediaBuffer>(new UnlockableBuffer(made.Get())).Detach();
  return S_OK;
}

}  // namespace

HRESULT makeMediaType(const CameraDescription& camera, QSize size, IMFMediaType** type) {
  const auto width = static_cast<UINT32>(size.width());
  const auto height = static_cast<UINT32>(size.height());
  const bool isRgb32 = !camera.fault(FaultKind::kNotRgb32);

  ComPtr<IMFMediaType> made;
  HRESULT status = MFCreateMediaType(&made);
  if (FAILED(status)) return status;
  made->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
  made->SetGUID(MF_MT_SUBTYPE, isRgb32 ? MFVideoFormat_RGB32 : kUnknownFormat);
  made->SetUINT64(MF_MT_FRAME_SIZE, pairOf(width, height));
  made->SetUINT64(MF_MT_FRAME_RATE, rateOf(camera.framesPerSecond));
  made->SetUINT64(MF_MT_PIXEL_ASPECT_RATIO, pairOf(1, 1));
  made->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
  made->SetUINT32(MF_MT_ALL_SAMPLES_INDEPENDENT, TRUE);
  made->SetUINT32(MF_MT_FIXED_SIZE_SAMPLES, TRUE);
  made->SetUINT32(MF_MT_SAMPLE_SIZE, width * height * kBytesPerPixel);
  if (camera.stride != Stride::kAbsent) {
    const UINT32 stride = width * kBytesPerPixel;
    made->SetUINT32(MF_MT_DEFAULT_STRIDE, camera.stride == Stride::kNegative ? 0U - stride : stride);
  }
  *type = made.Detach();
  return S_OK;
}

HRESULT makeFrameSample(const QImage& image, const FrameForm& form, LONGLONG time, LONGLONG duration,
                        IMFSample** sample) {
  ComPtr<IMFMediaBuffer> buffer;
  HRESULT status = makeFrameBuffer(image, form, &buffer);
  if (FAILED(status)) return status;

  ComPtr<IMFSample> made;
  status = MFCreateSample(&made);
  if (FAILED(status)) return status;
  status = made->AddBuffer(buffer.Get());
  if (FAILED(status)) return status;
  made->SetSampleTime(time);
  made->SetSampleDuration(duration);
  *sample = made.Detach();
  return S_OK;
}
