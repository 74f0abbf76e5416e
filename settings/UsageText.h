// How the print spooler calls the program: shown by `help` and when there is nothing to do.
#pragma once

#include <string_view>

namespace Settings {

extern const std::string_view kUsageText;

}  // namespace Settings
