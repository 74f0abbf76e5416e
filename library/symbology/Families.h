// The kinds of symbologies: what all types of a kind have in common.
#pragma once

#include "library/Options.h"
#include "library/symbology/StructuredAppend.h"
#include "library/symbology/Symbology.h"

namespace Library::Families {

inline bool Always(const Options&) {
  return true;
}
inline bool GsDataMatrix(const Options& options) {
  return options.dataMatrix.format == 1;
}
inline bool GsQrCode(const Options& options) {
  return options.qr.format == 1;
}
inline bool GsAztec(const Options& options) {
  return options.aztec.format == 1;
}
inline bool GsMicroPdf417(const Options& options) {
  return options.pdf417.microMode == 1 || options.pdf417.microMode == 4;
}
inline bool GsCodablock(const Options& options) {
  return options.codablock.format == 1;
}

inline bool AztecRune(const Options& options) {
  return options.aztec.runes;
}
inline bool NumericMicroQr(const Options& options) {
  return options.qr.microVersion == 1;
}

inline SetHeights Pdf417Heights(const Options& options) {
  return {options.pdf417.rowHeight, -1};
}
inline SetHeights CodablockHeights(const Options& options) {
  return {options.codablock.rowHeight, options.codablock.separatorHeight};
}

using G = Geometry;
using E = ElementRule;
using M = MinimalHeight;

// Linear symbols, with their text below.
constexpr Family kTwoWidthBarcode = {.geometry = G::kLinear,
                                     .elements = E::kTwoWidths,
                                     .minimalHeight = M::kGeneral,
                                     .textShown = true};
constexpr Family kInterleavedBarcode = {.geometry = G::kLinear,
                                        .elements = E::kTwoWidths,
                                        .minimalHeight = M::kGeneral,
                                        .textShown = true,
                                        .pairs = true};
constexpr Family kLogisticsTwoWidth = {.geometry = G::kLinear,
                                       .elements = E::kTwoWidths,
                                       .minimalHeight = M::kLogistics,
                                       .textShown = true};
constexpr Family kTwoWidthBars = {.geometry = G::kLinear,
                                  .elements = E::kTwoWidthBars,
                                  .minimalHeight = M::kGeneral,
                                  .textShown = true};
// Telepen's wide elements are three modules, no other.
constexpr Family kFixedTwoWidthBarcode = {
    .geometry = G::kLinear, .minimalHeight = M::kGeneral, .textShown = true};
constexpr Family kPlainBarcode = kFixedTwoWidthBarcode;
constexpr Family kHiddenPlainBarcode = {.geometry = G::kLinear, .minimalHeight = M::kGeneral};
constexpr Family kFourWidthBarcode = {.geometry = G::kLinear,
                                      .elements = E::kFourWidths,
                                      .minimalHeight = M::kGeneral,
                                      .textShown = true,
                                      .characterRuns = 6};
constexpr Family kLogisticsBarcode = {.geometry = G::kLinear,
                                      .elements = E::kFourWidths,
                                      .minimalHeight = M::kLogistics,
                                      .textShown = true};
// A parcel's number under a bar.
constexpr Family kDpdBarcode = {.geometry = G::kLinear,
                                .elements = E::kFourWidths,
                                .minimalHeight = M::kLogistics,
                                .textShown = true,
                                .topBar = 3};
constexpr Family kCode128Family = {.geometry = G::kLinear,
                                   .elements = E::kFourWidths,
                                   .minimalHeight = M::kGeneral,
                                   .textShown = true,
                                   .functionCharacters = true,
                                   .codeSets = true};
constexpr Family kGs1Code128 = {.geometry = G::kLinear,
                                .elements = E::kFourWidths,
                                .minimalHeight = M::kLogistics,
                                .textShown = true,
                                .functionCharacters = true,
                                .codeSets = true,
                                .takesGs1 = Always};
constexpr Family kEanUpc = kLogisticsBarcode;
constexpr Family DataBar(double leastHeight) {
  return {.geometry = G::kLinear,
          .minimalHeight = M::kLogistics,
          .textShown = true,
          .leastHeight = leastHeight};
}
constexpr Family kDataBar = DataBar(33);
constexpr Family kTruncatedDataBar = DataBar(13);
constexpr Family kLimitedDataBar = DataBar(10);
constexpr Family kDataBarExpanded = {.geometry = G::kLinear,
                                     .minimalHeight = M::kLogistics,
                                     .textShown = true,
                                     .leastHeight = 34,
                                     .takesGs1 = Always,
                                     .ownElementCharacters = true};

// Stacked symbols.
constexpr Family kStackedDataBar = {.geometry = G::kStacked, .rowHeight = 33};
constexpr Family kStackedDataBarExpanded = {
    .geometry = G::kStacked, .rowHeight = 34, .takesGs1 = Always, .ownElementCharacters = true};
constexpr Family kCode16K = {.geometry = G::kStacked,
                             .elements = E::kFourWidths,
                             .rowHeight = 8,
                             .functionCharacters = true};
constexpr Family kCode49 = {.geometry = G::kStacked, .rowHeight = 8};
constexpr Family kCodablockF = {.geometry = G::kStacked,
                                .elements = E::kFourWidths,
                                .rowHeight = 10,
                                .functionCharacters = true,
                                .takesGs1 = GsCodablock,
                                .setHeights = CodablockHeights};
// A message of the health industry is one symbol's, and no element string.
constexpr Family kHibcCodablockF = {.geometry = G::kStacked,
                                    .elements = E::kFourWidths,
                                    .rowHeight = 10,
                                    .functionCharacters = true,
                                    .setHeights = CodablockHeights};
constexpr Family kPdf417 = {.geometry = G::kStacked,
                            .rowHeight = 3,
                            .eci = true,
                            .setHeights = Pdf417Heights,
                            .append = &kPdf417Append};
constexpr Family kMicroPdf417 = {.geometry = G::kStacked,
                                 .rowHeight = 2,
                                 .eci = true,
                                 .takesGs1 = GsMicroPdf417,
                                 .setHeights = Pdf417Heights,
                                 .append = &kPdf417Append};
constexpr Family kHibcMicroPdf417 = {.geometry = G::kStacked,
                                     .rowHeight = 2,
                                     .eci = true,
                                     .hibc = true,
                                     .setHeights = Pdf417Heights,
                                     .append = &kPdf417Append};
constexpr Family kHibcPdf417 = {.geometry = G::kStacked,
                                .rowHeight = 3,
                                .eci = true,
                                .hibc = true,
                                .setHeights = Pdf417Heights,
                                .append = &kPdf417Append};

// Matrix symbols.
constexpr Family kMatrix = {.geometry = G::kMatrix};
constexpr Family kMicroQr = {.geometry = G::kMatrix, .closed = NumericMicroQr};
constexpr Family kMailmarkMatrix = {.geometry = G::kMatrix, .closed = Always};
constexpr Family kQrCode = {
    .geometry = G::kMatrix, .eci = true, .takesGs1 = GsQrCode, .append = &kQrCodeAppend};
constexpr Family kRectangularMicroQr = {.geometry = G::kMatrix, .eci = true, .takesGs1 = GsQrCode};
constexpr Family kDataMatrix = {
    .geometry = G::kMatrix, .eci = true, .takesGs1 = GsDataMatrix, .append = &kDataMatrixAppend};
constexpr Family kAztec = {.geometry = G::kMatrix,
                           .eci = true,
                           .takesGs1 = GsAztec,
                           .append = &kAztecAppend,
                           .closed = AztecRune};
// Dots on every other place of a grid.
constexpr Family kDotCode = {.geometry = G::kDots, .eci = true, .append = &kDotCodeAppend};
constexpr Family kCodeOne = {.geometry = G::kMatrix, .eci = true, .append = &kCodeOneAppend};
constexpr Family kHanXin = {.geometry = G::kMatrix, .eci = true};
constexpr Family HibcMatrix(const StructuredAppend& append) {
  return {.geometry = G::kMatrix, .eci = true, .hibc = true, .append = &append};
}
constexpr Family kHibcQrCode = HibcMatrix(kQrCodeAppend);
constexpr Family kHibcDataMatrix = HibcMatrix(kDataMatrixAppend);
constexpr Family kHibcAztec = HibcMatrix(kAztecAppend);
constexpr Family kMaxiCode = {.geometry = G::kHexagonal, .eci = true, .append = &kMaxiCodeAppend};

// Postal symbols: short and tall bars, bars in two or four states.
constexpr Family kTwoState = {.geometry = G::kFourState};
constexpr Family kTwoTrack = {.geometry = G::kFourState};
constexpr Family kFourState = {.geometry = G::kFourState};

}  // namespace Library::Families
