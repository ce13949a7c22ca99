#pragma once

#include <string>
#include <vector>

/// Accessible names of the buttons in a dialog's footer, from the first to the third.
const std::vector<std::string> kFooterButtonNames = {
    "display_interactive_footer_button_number_1",
    "display_interactive_footer_button_number_2",
    "display_interactive_footer_button_number_3",
};
