#pragma once

#include <string>

namespace vexa::utils::platform {

/// Who may do what in a folder that the module's family creates: everything for the system and administrators, reading
/// and executing for users, inherited by files and subfolders. This module creates no folder and applies it nowhere.
const std::wstring kFolderSecurityDescriptor = L"D:(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;BU)";

/// The module's folders by kind. DATA is the folder "Quillon" below the machine's ProgramData folder, CURRENT the
/// current directory, USER the name of the signed-in user.
///
///   0  DATA                             the root of all that is shared
///   1  DATA\scripts                     scripts of the host
///   2  DATA\QtWebEngine                 cache of the host's help viewer
///   3  DATA\logs_thermal_monitor_tool   logs of the thermal monitor
///   4  DATA\temp                        temporary files of all users
///   5  DATA\logs_tools                  logs of the other tools
///   6  CURRENT                          where the host was started
///   7  CURRENT\scripts                  scripts laid beside the host
///   8  DATA\QtWebEngine\USER            the user's own part of kind 2
///   9  DATA\temp\USER                   the user's own part of kind 4
///  10  DATA\logs_tools\USER             the user's own part of kind 5
///
/// The path ends without a separator; the folder need not exist. Any other kind, and one whose base the system does not
/// yield, gives an empty path; a user whose name cannot be had gets the shared folder.
[[nodiscard]] std::wstring GetFolderPath(int kind);

}  // namespace vexa::utils::platform
