#pragma once

#include <guiddef.h>

/// What a camera has to tell a reader beside its frames. As attributes of the samples that its stream delivers, a
/// reader's callback gets it in its place among the frames (see ReportingCallback).
namespace sample_marks {

/// UINT32, an HRESULT: the read fails with it. The sample carries no buffer.
inline constexpr GUID kReadFails{0x5e0d6a1c, 0x3b7f, 0x4f52, {0x9a, 0x41, 0x0c, 0x7d, 0x52, 0xe8, 0x13, 0x6b}};

/// UINT32, 1: the media type changed with this sample.
inline constexpr GUID kMediaTypeChanged{0xa2c41f77, 0x88d0, 0x4b19, {0xb6, 0x0e, 0x91, 0x2f, 0x4d, 0x3a, 0x70, 0xc5}};

/// UINT32, an HRESULT, of a camera's presentation descriptor: every call that asks for a sample fails with it.
inline constexpr GUID kReadRefused{0x7d2be0f4, 0x5c19, 0x4c0e, {0x8e, 0x27, 0x36, 0xd1, 0x90, 0xaf, 0x52, 0x0b}};

}  // namespace sample_marks
