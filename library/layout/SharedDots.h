// Dots of matrix symbols whose modules are wider than one dot and narrower than two.
//
// Columns of one and of two dots leave a module that stands alone in a narrow one with half of its
// ink, which neither verifiers nor cameras forgive. So the dots that lie across borders of modules
// go to one or the other by themselves: each module is to have its colour on as much of its ideal
// square as can be, the sum of the squares of what modules miss being made smaller until no dot can
// change. Ink spreads, so dark modules are content with 5 % less and light ones want 5 % more.
//
// All is done in integers, the same here and in PostScript (writer/PostScriptBars.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace Library {

// Between these numbers of dots a module. Below, whole modules of a dot do (layout/Dots.h).
constexpr double kSharedFrom = 1.2, kSharedBelow = 1.98;
// The most modules along a side: time goes with their square.
constexpr int kMostSharedModules = 64;

// Rows from the lower to the upper one, 1 for dark.
struct CellGrid {
  int columns = 0, rows = 0;
  std::vector<std::uint8_t> cells;
};

// The modules on a grid of so many dots. Between one and two dots a module in both directions.
CellGrid ShareDots(const CellGrid& modules, int columns, int rows);

}  // namespace Library
