// The list of all barcode options, shown by `barcodesettings`.
#pragma once

#include <string_view>

namespace Settings {

extern const std::string_view kHelpText;

}  // namespace Settings
