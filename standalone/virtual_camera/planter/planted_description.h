#pragma once

#include <QString>

/// The place in the registry (below HKEY_LOCAL_MACHINE) that records what is planted.
inline constexpr wchar_t kPlantRecordKey[] = L"SOFTWARE\\module_camera\\virtual_camera";
inline constexpr wchar_t kPlantRecordDescription[] = L"Description";
inline constexpr wchar_t kPlantRecordKeys[] = L"Keys";

/// The absolute path of the camera description whose cameras are planted; empty when none are.
[[nodiscard]] QString plantedDescriptionPath();
