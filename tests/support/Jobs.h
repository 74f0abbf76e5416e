// Print jobs and their pieces, as tests put them together.
#pragma once

#include <string>
#include <string_view>

namespace Support {

// A text as a PostScript string with delimiters: in hexadecimal (capital digits), in ASCII85.
std::string HexString(std::string_view text);
std::string Ascii85String(std::string_view text);

// What a PostScript job holds in place of a sequence: the library's drawing in its wrapper.
// `placement` is one of the three below.
std::string Wrapped(std::string_view drawing, std::string_view placement);
inline constexpr std::string_view kRelative =
    "% translate to current position\ncurrentpoint translate\n";
inline constexpr std::string_view kRelativeReset =
    "% translate to current position\n"
    "currentpoint transform initgraphics itransform translate\n";
inline constexpr std::string_view kAbsolute = "initgraphics\n\n";

// The job without the barcodes that a filter run has put in.
std::string WithoutBarcodes(std::string_view job);

inline std::string Blanks(std::size_t count) {
  return std::string(count, ' ');
}

}  // namespace Support
