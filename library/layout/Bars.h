// The dark areas of linear, stacked, 4-state and matrix symbols as rectangles, not turned yet, in
// thousandths of a millimetre.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/symbology/Symbol.h"

#include <vector>

namespace Library {

struct Bar {
  double left, bottom, right, top;
};

// Runs that lie under one another with the same edges become one bar.
std::vector<Bar> LayOutBars(const Symbol& symbol, const Options& options, const Measures& measures);

// Bearer bars; they touch the bars of the symbol.
std::vector<Bar> LayOutBearerBars(const Options& options, const Measures& measures);

}  // namespace Library
