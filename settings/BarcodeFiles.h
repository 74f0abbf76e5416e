// The options of the barcode settings that name a file to read.
#pragma once

#include "parser/IniFileParser.h"
#include "settings/BarcodeSettings.h"

#include <string>

namespace Settings {

// Barcode settings files may include further ones, so deep that a file which includes itself ends
// before it has used up the stack or the open files.
inline constexpr int kMaxFileNesting = 16;
inline constexpr std::size_t kMaxSettingsSize = std::size_t{1} << 20;  // bytes
// Data files come from print jobs too, so a name such as /dev/zero must not take all memory. No
// grid of symbols holds as much.
inline constexpr std::size_t kMaxDataSize = std::size_t{16} << 20;
// What one sequence may have read in all, counted in bytes of data: a file costs as much as so
// many, a byte of options, each of which is looked up, as several. 4 MiB of options take a quarter
// of a second.
inline constexpr std::size_t kMaxFileCost = std::size_t{32} << 20;
inline constexpr std::size_t kFileCost = 65536;
inline constexpr std::size_t kSettingsByteCost = 8;

// Settings that come from a job read regular files only, and none at all when `jobfiles` denies it.

// Appends the file's bytes to the data. kAccessDenied, reported, when the file can't be opened or
// read to its end, is too large or not allowed, or when those of one sequence cost too much.
Diag::ResultCode AppendDataFile(BarcodeSettings& settings, const std::string& fileName);

// Applies the options of a barcode settings file. kAccessDenied, reported, as above, else the
// result of its first option that fails, whose place is then in `failurePlace`; kInvalidArgument,
// reported, beyond kMaxFileNesting.
Diag::ResultCode ReadSettingsFile(BarcodeSettings& settings, const std::string& fileName);

// "line 3 of FILE: width=abc": the option that the parser has just delivered, as messages name it.
std::string PlaceIn(const Parser::IniFileParser& parser, const std::string& fileName, bool fromJob);

}  // namespace Settings
