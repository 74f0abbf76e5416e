// What an Orvella sequence says about its barcode.
//
// The header is a row of decimal numbers, one byte between each two, and the body holds the data:
//
//     header:  1Ch "a"  p1 "," p2 "," p3 "," p4 "," p5 "," p6  ["," "ECL=" level]  ";"
//     body:    1Ch "b"  two bytes  data  1Ch "b"
//
//     p1  barcode type, 1 to 26
//     p2  module width, 50 to 999 in 1/300 inch; the font's size follows from it
//     p3  bar height in 1/300 inch, 0: not given
//     p4  width of the wide elements in 1/300 inch, 0: from p5
//     p5  ratio of wide to narrow elements: 2.0, 2.5, 3.0, 3.5 for 1 to 4
//     p6  text and rotation, 0 to 6
#pragma once

#include "diag/ResultCode.h"
#include "settings/BarcodeSettings.h"

#include <string>
#include <string_view>

namespace Filter {

// The byte that begins a sequence.
inline constexpr char kOrvellaControl = '\x1c';
inline constexpr std::string_view kOrvellaHeaderBegin =
    "\x1c"
    "a";
inline constexpr std::string_view kOrvellaHeaderEnd = ";";
// Begins the body and ends it.
inline constexpr std::string_view kOrvellaMarker =
    "\x1c"
    "b";
// In front of the data: the body's opening and the two bytes behind it.
inline constexpr std::size_t kOrvellaDataBegin = 4;

// The body as text: every 0 byte becomes the four characters \x00.
std::string OrvellaText(std::string_view body);

// Fills the settings. Without a header the body alone is read. kInvalidArgument, reported, for a
// number that stands for no barcode type.
// REQUIRES: header and body are whole sequences; the header may be empty.
Diag::ResultCode DecodeOrvella(std::string_view header, std::string_view body,
                               Settings::BarcodeSettings& settings);

}  // namespace Filter
