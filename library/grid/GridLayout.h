// The drawing of a grid of barcodes.
#pragma once

#include "library/Options.h"
#include "library/grid/GridPlan.h"
#include "library/layout/Drawing.h"

namespace Library {

// Cells row by row from the upper left one, each with its symbol as one alone would lie in that
// rectangle, but symbols that fill their cells have common modules; cells left over stay empty.
// Cells that are too small for their symbols take more than the rectangle from its lower left
// corner on, or with must-fit Error with BC_E_MUSTFIT is thrown; BC_E_INVALIDARG for places out of
// range. REQUIRES: symbols is not empty, shape.holds(symbols.size()).
Drawing LayOutGrid(std::span<const Symbol> symbols, const Options& options, const GridShape& shape,
                   const BCRect& rectangle);

}  // namespace Library
