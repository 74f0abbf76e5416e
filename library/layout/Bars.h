// The dark areas of linear, stacked, 4-state and matrix symbols as rectangles, not turned yet, in
// thousandths of a millimetre.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/symbology/Symbol.h"

#include <optional>
#include <vector>

namespace Library {

struct Bar {
  double left, bottom, right, top;
};

// Runs that lie under one another with the same edges become one bar.
std::vector<Bar> LayOutBars(const Symbol& symbol, const Options& options, const Measures& measures);

// What the bars of any but a matrix symbol cover; nothing where there are none.
std::optional<Bar> BoundsOfBars(const Symbol& symbol, const Options& options,
                                const Measures& measures);

// Guard bars reach below the data bars; the bars of an add-on do so too and begin lower.
struct BarEnds {
  double bottom, top;
};
bool HasUnequalBars(const Symbol& symbol);
// Of the last row, at a module.
BarEnds LastRowEnds(const Symbol& symbol, const Measures& measures, int module, BarEnds row);

// How much narrower each bar becomes, half of it on each side.
double BarReduction(const Options& options, double narrowBar, double x);

// Bearer bars; they touch the bars of the symbol.
std::vector<Bar> LayOutBearerBars(const Measures& measures);

}  // namespace Library
