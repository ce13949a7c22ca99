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

/// Below the record: under each symbolic link, how often a program tried to open its camera.
inline constexpr wchar_t kOpensKey[] = L"SOFTWARE\\module_camera\\virtual_camera\\Opens";
/// Below the record: under each symbolic link, how often its camera was plugged in; negative while it is unplugged.
inline constexpr wchar_t kArrivalsKey[] = L"SOFTWARE\\module_camera\\virtual_camera\\Arrivals";

/// The key of a camera's device interface.
[[nodiscard]] std::wstring interfaceKey(const std::wstring& symbolicLink);

/// The key below it whose number kLinked tells SetupAPI whether the interface is present: 1 or 0.
[[nodiscard]] std::wstring interfaceControlKey(const std::wstring& symbolicLink);
inline constexpr wchar_t kLinked[] = L"Linked";
