// The words that select the values of the barcode settings' enumerations, in upper case.
#pragma once

#include "settings/BarcodeSettings.h"
#include "settings/OptionValues.h"

namespace Settings {

inline constexpr Keyword kOnOff[] = {{"ON", 1}, {"OFF", 0}};
inline constexpr Keyword kFormats[] = {{"PS", kFormatPostScript},
                                       {"PCL", kFormatPcl},
                                       {"IMAGE", kFormatImage},
                                       {"PDF", kFormatPdf},
                                       {"PDFFRAG", kFormatPdfFragment}};
inline constexpr Keyword kCompressions[] = {{"NONE", 0}, {"DEFLATE", 1}, {"GZIP", 2}, {"ZLIB", 3}};
// "HORIZONTAL" is the old name of "TOPANDBOTTOM".
inline constexpr Keyword kBearerTypes[] = {{"NONE", 0},      {"HORIZONTAL", 1}, {"TOPANDBOTTOM", 1},
                                           {"RECTANGLE", 2}, {"TOP", 3},        {"BOTTOM", 4}};
inline constexpr Keyword kReductionUnits[] = {
    {"PERC", kUnitPercent}, {"MM", kUnitMillimetre}, {"MILS", kUnitMils}, {"INCH", kUnitInch}};
inline constexpr Keyword kQuietZoneUnits[] = {{"NONE", kUnitNone},     {"MOD", kUnitModule},
                                              {"MM", kUnitMillimetre}, {"MILS", kUnitMils},
                                              {"INCH", kUnitInch},     {"PX", kUnitPixel}};
inline constexpr Keyword kRotations[] = {{"0", 0}, {"90", 1}, {"180", 2}, {"270", 3}};
inline constexpr Keyword kOrigins[] = {{"TOP", kOriginTop}, {"BOTTOM", kOriginBottom}};
inline constexpr Keyword kDecoders[] = {
    {"ANY", 0}, {"HARDWARE", 1}, {"SOFTWARE", 2}, {"VEXTORIN", 3}};
inline constexpr Keyword kSizeModes[] = {
    {"DEFAULT", -1}, {"FIT", 0}, {"MODULE", 1}, {"MINIMAL", 2}};
inline constexpr Keyword kTextPositions[] = {
    {"ABOVE", kTextAbove}, {"BELOW", kTextBelow}, {"HIDE", kTextHide}};
inline constexpr Keyword kAlignments[] = {{"DEFAULT", 0}, {"LEFT", 1}, {"RIGHT", 2}, {"CENTER", 3}};
inline constexpr Keyword kColorModes[] = {{"RGB", 0}, {"GRAY", 1}, {"CMYK", 2}};
inline constexpr Keyword kPclModes[] = {{"PCL5", 0}, {"PCL5NOHPGL", 1}};
inline constexpr Keyword kPositionings[] = {{"REL", 1}, {"ABS", 0}};
inline constexpr Keyword kBackgrounds[] = {{"TRANSPARENT", 1}, {"OPAQUE", 2}};
inline constexpr Keyword kComposites[] = {{"NONE", 0}, {"AUTO", 1}, {"A", 2}, {"B", 3}, {"C", 4}};
inline constexpr Keyword kDynamicSizes[] = {{"NONE", 0}, {"HORIZONTAL", 1}, {"VERTICAL", 2}};
inline constexpr Keyword kStructuredAppends[] = {{"NONE", 0}, {"STANDARD", 1}, {"VEXTORIN", 2}};

}  // namespace Settings
