#pragma once

// Constants that all modules of the host share.

#include <string>

namespace host_constants {

const std::string kMutexName = "Global\\{2194ABA1-BFFA-4e6b-8C26-D191BB16F9E6}";
/// The lower-case h is the host's.
const std::string kGigahertz = "Ghz";
const std::string kPathSeparator = "\\";
const std::wstring kWidePathSeparator = L"\\";
const std::string kLibrarySuffix = ".dll";
const std::string kAllExecutionsFinished = "AllExecutionsFinished";

}  // namespace host_constants
