#include "library/layout/ModuleGrid.h"

#include <cmath>
#include <numeric>

namespace Library {
namespace {

// Edges of the cells when each module has a border of `side` on both sides.
std::vector<double> SplitEdges(const std::vector<double>& edges, double side) {
  std::vector<double> split = {edges.front()};
  for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
    split.insert(split.end(), {edges[i] + side, edges[i + 1] - side, edges[i + 1]});
  }
  return split;
}

}  // namespace

// One light module all round leaves room to grow.
ModuleGrid::ModuleGrid(const Symbol& symbol)
    : rowEdges(symbol.rows.size() + 3), columnEdges(static_cast<std::size_t>(symbol.width) + 3) {
  std::iota(rowEdges.begin(), rowEdges.end(), -1);
  std::iota(columnEdges.begin(), columnEdges.end(), -1);
  cells.resize(rows() * columns());
  for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
    std::size_t at = (row + 1) * columns() + 1;
    bool dark = true;
    for (int run : symbol.rows[row].runs) {
      for (int i = 0; i < run; ++i) cells[at++] = dark;
      dark = !dark;
    }
  }
}

// `down` and `right` say which of a module's cells: -1, 0 or 1 from its core.
bool ModuleGrid::cellOf(std::size_t row, std::size_t column, int down, int right, bool grow) const {
  const std::size_t nextRow = row + static_cast<std::size_t>(down);
  const std::size_t nextColumn = column + static_cast<std::size_t>(right);
  const bool a = isDark(row, column), b = isDark(nextRow, column), c = isDark(row, nextColumn),
             d = isDark(nextRow, nextColumn);
  return grow ? a || b || c || d : a && b && c && d;
}

ModuleGrid ModuleGrid::narrowed(double reduction) const {
  if (reduction == 0) return *this;
  ModuleGrid split;
  const double side = std::abs(reduction) / 2;
  split.rowEdges = SplitEdges(rowEdges, side);
  split.columnEdges = SplitEdges(columnEdges, side);
  split.cells.reserve(split.rows() * split.columns());
  for (std::size_t row = 0; row < split.rows(); ++row) {
    for (std::size_t column = 0; column < split.columns(); ++column) {
      const int down = static_cast<int>(row % 3) - 1, right = static_cast<int>(column % 3) - 1;
      split.cells.push_back(cellOf(row / 3, column / 3, down, right, reduction < 0));
    }
  }
  return split;
}

std::vector<ModuleGrid::Run> ModuleGrid::runs(std::size_t row) const {
  std::vector<Run> found;
  for (std::size_t column = 0; column < columns(); ++column) {
    if (!isDark(row, column)) continue;
    if (column > 0 && isDark(row, column - 1)) {
      found.back().to = columnEdges[column + 1];
    } else {
      found.push_back({columnEdges[column], columnEdges[column + 1]});
    }
  }
  return found;
}

}  // namespace Library
