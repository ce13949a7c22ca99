#pragma once

#include <string>

namespace vexa::utils::platform {

/// Who may do what in a folder that the module's family creates: everything for the system and administrators, reading
/// and executing for users, inherited by files and subfolders. This module applies it nowhere.
inline constexpr wchar_t kFolderSecurityDescriptor[] = L"D:(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;BU)";

/// The kind of the folder for files that live no longer than what uses them.
inline constexpr int kTemporaryFolder = 4;

/// The module's folders by kind. DATA is the folder "Quillon" below the machine's ProgramData folder, CURRENT the
/// current directory, USER the name of the signed-in user.
///
///   0  DATA                              6  CURRENT
///   1  DATA\scripts                      7  CURRENT\scripts
///   2  DATA\QtWebEngine                  8  DATA\QtWebEngine\USER
///   3  DATA\logs_thermal_monitor_tool    9  DATA\temp\USER
///   4  DATA\temp                        10  DATA\logs_tools\USER
///   5  DATA\logs_tools
///
/// This module itself asks for kTemporaryFolder alone.
/// The path ends without a separator; the folder need not exist. Any other kind, and one whose base the system does not
/// yield, gives an empty path; a user whose name cannot be had gets the shared folder.
[[nodiscard]] std::wstring GetFolderPath(int kind);

}  // namespace vexa::utils::platform
