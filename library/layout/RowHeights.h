// How high the rows of bars become.
#pragma once

#include "library/Options.h"
#include "library/layout/Measure.h"
#include "library/layout/Units.h"
#include "library/symbology/Symbol.h"

#include <vector>

namespace Library {

// Bars below this do not fit into the box: nobody sweeps a scanner along less.
inline constexpr double kLeastBarHeight = 2 * kMillimetre;

struct RowSpace {
  double module;  // X
  double width;   // of the bars
  double height;  // that the box leaves for the rows, may be less than 0
};

// Heights of the rows of a linear, stacked or 4-state symbol in 1/1000 mm, from top to bottom.
std::vector<double> RowHeights(const Symbol& symbol, const Options& options, SizeMode mode,
                               const RowSpace& space);

// What the rows take at least, in modules of that width, to fill a box; 0: they are as high as it
// leaves room for.
double LeastRowsHeight(const Symbol& symbol, const Options& options, double module);

// Height of MaxiCode's rows, in hexagons side by side.
double HexagonRowsHeight(const Symbol& symbol);

// A row that only separates two others.
bool IsSeparator(const SymbolRow& row);

}  // namespace Library
