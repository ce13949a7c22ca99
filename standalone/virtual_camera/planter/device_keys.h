#pragma once

#include <string>

// The places in the registry, below HKEY_LOCAL_MACHINE, that hold the planted cameras.

/// The record of what is planted.
inline constexpr wchar_t kPlantRecordKey[] = L"SOFTWARE\\module_camera\\virtual_camera";
/// In it: the absolute path of the description.
inline constexpr wchar_t kPlantRecordDescription[] = L"Description";
/// In it: every key that belongs to a planted camera.
inline constexpr wchar_t kPlantRecordKeys[] = L"Keys";
/// In it: the symbolic link of every planted camera.
inline constexpr wchar_t kPlantRecordLinks[] = L"Links";

/// Under each symbolic link, how often its camera was plugged in; negative while it is unplugged. It stays when the
/// record goes, so that no two arrivals have one number.
inline constexpr wchar_t kArrivalsKey[] = L"SOFTWARE\\module_camera\\virtual_camera_arrivals";

/// The key of a camera's device interface.
[[nodiscard]] std::wstring interfaceKey(const std::wstring& symbolicLink);

/// The key below it. Its number kLinked tells SetupAPI whether the interface is present: 1 or 0. Its number kOpens is
/// how often a program tried to open the camera.
[[nodiscard]] std::wstring interfaceControlKey(const std::wstring& symbolicLink);
inline constexpr wchar_t kLinked[] = L"Linked";
inline constexpr wchar_t kOpens[] = L"Opens";
