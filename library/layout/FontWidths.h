// Character widths of the PostScript standard fonts, in thousandths of the font size.
#pragma once

#include <array>
#include <cstdint>

namespace Library {

using FontWidths = std::array<std::uint16_t, 224>;  // Latin-1 codes 32..255

extern const FontWidths kHelveticaWidths, kHelveticaBoldWidths;
extern const FontWidths kTimesRomanWidths, kTimesBoldWidths;
extern const FontWidths kTimesItalicWidths, kTimesBoldItalicWidths;

}  // namespace Library
