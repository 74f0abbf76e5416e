// The size of a symbol: its module width by size mode, decoder and resolution, and where bars, text
// and margins lie. Everything is in thousandths of a millimetre and not turned yet, the origin is
// the lower left corner of the symbol with everything round it.
//
// From bottom to top: quiet zone, text below (guard bars reach into it), bearer bar, rows, bearer
// bar, text above, quiet zone. From left to right: quiet zone or the digits outside the bars,
// whichever is wider, bars, the same. A rectangle of bearer bars lies outside the quiet zone.
#pragma once

#include "library/Options.h"
#include "library/layout/TextPlan.h"
#include "library/symbology/Symbol.h"

#include <vector>

namespace Library {

struct Box {
  double width = 0, height = 0;
};

struct Measures {
  double module = 0;  // X
  double width = 0, height = 0;
  bool fits = true;  // into the box
  // What it would take for readers to be sure, X and width; 0: nothing.
  double neededModule = 0, neededWidth = 0;

  double left = 0, right = 0;  // edges of the bars
  double bottom = 0, top = 0;  // edges of the rows
  std::vector<double> rowHeights;
  double guardDrop = 0;
  double bearer = 0;  // thickness of bearer bars, 0: none
  int bearerType = 0;
  TextPlan text;
};

enum class SizeMode { kFit = 0, kModule = 1, kMinimal = 2 };
SizeMode SizeModeOf(const Options& options);

// Whether the resolution of the options is that of the device; at kUnknownDpi PostScript finds the
// dots when it is printed.
bool KnowsDots(const Options& options);

// Side of a device dot when the options ask for whole dots and the device is known; else 0.
double DotOf(const Options& options, double dpi);
inline double DotOf(const Options& options) {
  return DotOf(options, options.dpiX);
}

// The unturned symbol in a box of that size. Throws Error with BC_E_INVALIDARG for a print ratio
// that does not suit the symbol.
Measures Measure(const Symbol& symbol, const Options& options, const Box& box);

}  // namespace Library
