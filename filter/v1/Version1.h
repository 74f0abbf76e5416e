// The version-1 form of barcode parameters: letters with their value behind them, separated by
// blanks, the data last:
//
//     b20 w40 h12.5 Qh3 dHello World
//
// Every failure is reported and is kInvalidArgument; what stood before the failing parameter is in
// the settings.
#pragma once

#include "diag/ResultCode.h"
#include "settings/BarcodeSettings.h"

#include <string>
#include <string_view>
#include <vector>

namespace Filter {

// Applies every parameter of the text, up to the first that fails.
Diag::ResultCode ParseVersion1(std::string_view text, Settings::BarcodeSettings& settings);

// The parameters of the text, which has to outlive them. Only blanks separate; the data parameter
// runs to the end of the text.
std::vector<std::string_view> SplitVersion1(std::string_view text);

// REQUIRES: the token is not empty.
Diag::ResultCode ApplyVersion1Token(std::string_view token, Settings::BarcodeSettings& settings);

// The description of all parameters, a line each.
std::string Version1Help();

}  // namespace Filter
