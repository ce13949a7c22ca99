#include "standalone/virtual_camera/media_source/frame_sample.h"

#include <mfapi.h>
#include <mferror.h>
#include <wrl/client.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "standalone/virtual_camera/media_source/unlockable_buffer.h"
#include "standalone/virtual_camera/pictures/yuv_frame.h"

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

struct Layout {
  GUID subtype;
  UINT32 stride;
  UINT32 bytes;
};

Layout layoutOf(PixelFormat format, QSize size) {
  const auto width = static_cast<UINT32>(yuvRow(size.width()));
  const auto height = static_cast<UINT32>(size.height());
  switch (format) {
    case PixelFormat::kYuy2:
      return {MFVideoFormat_YUY2, 2 * width, 2 * width * height};
    case PixelFormat::kNv12:
      return {MFVideoFormat_NV12, width, width * (height + (height + 1) / 2)};
    case PixelFormat::kRgb32:
      break;
  }
  const UINT32 stride = static_cast<UINT32>(size.width()) * kBytesPerPixel;
  return {MFVideoFormat_RGB32, stride, stride * height};
}

HRESULT makeFrameBuffer(const QImage& image, const FrameForm& form, IMFMediaBuffer** buffer) {
  const bool isRgb32 = form.format == PixelFormat::kRgb32;
  const auto pixels = static_cast<std::size_t>(form.share * image.width() * image.height());
  const QByteArray yuv = isRgb32 ? QByteArray() : yuvFrame(image, form.format);
  const auto size = isRgb32 ? static_cast<DWORD>(pixels * kBytesPerPixel)
                            : static_cast<DWORD>(form.share * static_cast<double>(yuv.size()));
  ComPtr<IMFMediaBuffer> made;
  HRESULT status = MFCreateMemoryBuffer(size, &made);
  if (FAILED(status)) return status;
  BYTE* bytes = nullptr;
  status = made->Lock(&bytes, nullptr, nullptr);
  if (FAILED(status)) return status;
  if (isRgb32) {
    copyRows(image, form.stride, {reinterpret_cast<QRgb*>(bytes), pixels});
  } else {
    std::copy_n(yuv.begin(), size, bytes);
  }
  made->Unlock();
  made->SetCurrentLength(size);
  *buffer = form.locksAtOnce ? made.Detach() : ComPtr<IMFMediaBuffer>(new UnlockableBuffer(made.Get())).Detach();
  return S_OK;
}

}  // namespace

HRESULT makeMediaType(const CameraDescription& camera, QSize size, IMFMediaType** type) {
  const Layout layout = layoutOf(camera.format, size);

  ComPtr<IMFMediaType> made;
  HRESULT status = MFCreateMediaType(&made);
  if (FAILED(status)) return status;
  made->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
  made->SetGUID(MF_MT_SUBTYPE, camera.fault(FaultKind::kNotRgb32) ? kUnknownFormat : layout.subtype);
  made->SetUINT64(MF_MT_FRAME_SIZE, pairOf(static_cast<UINT32>(size.width()), static_cast<UINT32>(size.height())));
  made->SetUINT64(MF_MT_FRAME_RATE, rateOf(camera.framesPerSecond));
  made->SetUINT64(MF_MT_PIXEL_ASPECT_RATIO, pairOf(1, 1));
  made->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
  made->SetUINT32(MF_MT_ALL_SAMPLES_INDEPENDENT, TRUE);
  made->SetUINT32(MF_MT_FIXED_SIZE_SAMPLES, TRUE);
  made->SetUINT32(MF_MT_SAMPLE_SIZE, layout.bytes);
  if (camera.format != PixelFormat::kRgb32) made->SetUINT32(MF_MT_YUV_MATRIX, MFVideoTransferMatrix_BT601);
  if (camera.stride != Stride::kAbsent) {
    made->SetUINT32(MF_MT_DEFAULT_STRIDE, camera.stride == Stride::kNegative ? 0U - layout.stride : layout.stride);
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
