#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

/// The video capture sources that Media Foundation lists, and how COM starts.
struct ScriptedMediaFoundation {
  /// The symbolic link of each source; nothing for a source that has none.
  std::vector<std::optional<std::wstring>> links;
  HRESULT apartmentStatus = S_OK;
};

ScriptedMediaFoundation& scriptedMediaFoundation();
