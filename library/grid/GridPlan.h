// Rows and columns of a grid, and how much room it takes.
#pragma once

#include "library/Options.h"
#include "library/grid/Axis.h"
#include "library/layout/Measure.h"
#include "library/symbology/Symbol.h"

#include <span>

namespace Library {

struct GridShape {
  int rows = 1, columns = 1;

  bool holds(int count) const { return static_cast<long long>(rows) * columns >= count; }
};

struct GridPlan {
  bool fits = false;
  GridShape shape;
  Box size;  // what the grid takes of the room; if it does not fit, what it needs at least
};

// The cells of a grid for these symbols, each as small as a decoder can read it or, with a module
// width set, as large as that makes it. Symbols that are to fill their cells stay their type's
// quiet zone apart unless distances are set.
struct GridCells {
  Axis across, down;
};
GridCells CellsOf(std::span<const Symbol> symbols, const Options& options);

// Rows and columns as set. Those not set are as many as the symbols need: of all divisions the one
// with the largest symbols where they grow, else rows filled from edge to edge. A grid that does
// not fit may grow in one direction; its cells keep the size that they have in the room.
// REQUIRES: symbols is not empty.
GridPlan PlanGrid(std::span<const Symbol> symbols, const Options& options, const Box& room);

}  // namespace Library
