// The options of the barcode settings that name a file to read.
#pragma once

#include "settings/BarcodeSettings.h"

namespace Settings {

// Barcode settings files may include further ones, so deep that a file which includes itself ends
// before it has used up the stack or the open files.
inline constexpr int kMaxFileNesting = 16;
// Data files come from print jobs too, so a name such as /dev/zero must not take all memory. No
// grid of symbols holds as much.
inline constexpr std::size_t kMaxDataSize = std::size_t{16} << 20;

// Appends the file's bytes to the data. kAccessDenied, reported, when the file can't be opened or
// read to its end, or is too large.
Diag::ResultCode AppendDataFile(BarcodeSettings& settings, const std::string& fileName);

// Applies the options of a barcode settings file. kAccessDenied when it can't be opened, else the
// result of its first option that fails; kInvalidArgument, reported, beyond kMaxFileNesting.
Diag::ResultCode ReadSettingsFile(BarcodeSettings& settings, const std::string& fileName);

}  // namespace Settings
