// A matrix symbol as dark and light cells, for bar-width reduction in both directions. Narrowing by
// r splits each module into 3 x 3 cells: a core, and sides and corners r/2 thick that turn light
// where the dark area ends (or, when it grows, dark where the light area ends). So modules that
// touch stay joined, and only the outline moves.
#pragma once

#include "library/symbology/Symbol.h"

#include <vector>

namespace Library {

class ModuleGrid {
 public:
  explicit ModuleGrid(const Symbol& symbol);

  // The dark area with its outline moved inward by half the reduction, in modules, or outward if
  // that is negative.
  ModuleGrid narrowed(double reduction) const;

  struct Run {
    double from, to;  // in modules from the left edge of the symbol
  };
  std::size_t rows() const { return rowEdges.size() - 1; }
  std::vector<Run> runs(std::size_t row) const;
  // In modules from the upper edge of the symbol.
  double topOf(std::size_t row) const { return rowEdges[row]; }
  double bottomOf(std::size_t row) const { return rowEdges[row + 1]; }

 private:
  ModuleGrid() = default;
  std::size_t columns() const { return columnEdges.size() - 1; }
  // Outside the grid is light.
  bool isDark(std::size_t row, std::size_t column) const {
    return row < rows() && column < columns() && cells[row * columns() + column] != 0;
  }
  bool cellOf(std::size_t row, std::size_t column, int down, int right, bool grow) const;

  std::vector<double> rowEdges, columnEdges;
  std::vector<char> cells;
};

}  // namespace Library
