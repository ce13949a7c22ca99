#pragma once

// What all modules of the host's family share. This module uses its own code, the wide separator and the pattern of the
// barcode test; the rest is carried for the family.

namespace family_constants {

inline constexpr char kCameraModuleCode[] = "CA";
/// The code of every kind of hardware module.
inline constexpr const char* kModuleCodes[] = {"AC", "AU", "BA", "BT", kCameraModuleCode,
                                               "CP", "DI", "FN", "FP", "HD",
                                               "KB", "MB", "MD", "ME", "MO",
                                               "OD", "PE", "RD", "SC", "SE",
                                               "TD", "TS", "VC", "WE", "WF"};

/// Accessible names of the buttons in a dialog's footer, from the first to the third.
inline constexpr const char* kFooterButtonNames[] = {
    "display_interactive_footer_button_number_1",
    "display_interactive_footer_button_number_2",
    "display_interactive_footer_button_number_3",
};

/// A mutex of the whole machine.
inline constexpr char kMutexName[] = "Global\\{2194ABA1-BFFA-4e6b-8C26-D191BB16F9E6}";
/// A notification of the whole machine.
inline constexpr char kAllExecutionsFinished[] = "AllExecutionsFinished";
/// The lower-case h is the host's.
inline constexpr char kGigahertz[] = "Ghz";
inline constexpr char kPathSeparator[] = "\\";
inline constexpr wchar_t kWidePathSeparator[] = L"\\";
inline constexpr char kLibrarySuffix[] = ".dll";
/// A regular expression for the characters that the value of a barcode must not hold.
inline constexpr char kBarcodeCleanUp[] = "[^\\da-zA-Z]+";

}  // namespace family_constants
