#include "library/grid/GridPlan.h"

#include "library/layout/Layout.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace Library {
namespace {

enum Growth { kNone, kSideways, kDownward };

// Quiet zones, in modules: what readers of bars and of matrices need at most (ISO/IEC 15417 and
// 18004).
constexpr double kBarQuiet = 10, kMatrixQuiet = 4;
// Between bars above each other there only has to be a gap.
constexpr double kBarGap = 2 * kMillimetre;

// The size of the largest symbol in a box of that size.
Box LargestIn(std::span<const Symbol> symbols, Options options, const Box& box) {
  options.mustFit = false;
  const auto length = [](double value) {
    return static_cast<std::int32_t>(std::lround(std::min(value, 1e9)));
  };
  const BCRect rectangle = {0, length(box.height), length(box.width), 0};
  Box largest;
  for (const Symbol& symbol : symbols) {
    const Box size = MeasureSymbol(symbol, options, rectangle);
    largest.width = std::max(largest.width, size.width);
    largest.height = std::max(largest.height, size.height);
  }
  return largest;
}

// The share that `modules` are of the widest symbol, which fills its cell.
double ShareOf(std::span<const Symbol> symbols, double modules) {
  int most = 1;
  for (const Symbol& symbol : symbols) most = std::max(most, symbol.width);
  return modules / most;
}

bool HasBars(const Symbol& symbol) {
  return symbol.geometry == Geometry::kLinear || symbol.geometry == Geometry::kStacked;
}

// Between cells along the lines of a symbol, and across them.
Axis::Gap GapAlong(std::span<const Symbol> symbols) {
  return {0, ShareOf(symbols, HasBars(symbols.front()) ? kBarQuiet : kMatrixQuiet)};
}
Axis::Gap GapAcross(std::span<const Symbol> symbols) {
  return HasBars(symbols.front()) ? Axis::Gap{kBarGap, 0} : GapAlong(symbols);
}

int Needed(int symbols, int others) {
  return (symbols + others - 1) / others;
}

class Planner {
 public:
  Planner(std::span<const Symbol> encoded, const Options& settings, const Box& given)
      : symbols(encoded),
        options(settings),
        grid(settings.grid),
        room(given),
        count(static_cast<int>(encoded.size())),
        cells(CellsOf(encoded, settings)) {}

  GridPlan plan() const {
    const GridShape shape = unforced();
    if (shape.holds(count) && fits(shape)) return fitted(shape, shape);
    if (grid.growth == kSideways) return grownSideways();
    if (grid.growth == kDownward) return grownDownward();
    return refused(missing(shape));
  }

 private:
  // Inside the room, if anything is.
  GridShape unforced() const {
    if (grid.rows > 0 && grid.columns > 0) return {grid.rows, grid.columns};
    if (grid.rows > 0) return {grid.rows, Needed(count, grid.rows)};
    if (grid.columns > 0) return {Needed(count, grid.columns), grid.columns};
    return SizeModeOf(options) == SizeMode::kFit ? largest() : filled();
  }

  GridShape filled() const {
    const int columns = cells.across.capacity(room.width, count);
    return {Needed(count, columns), columns};
  }

  // With the largest symbols; of those that are equal the one with fewer empty cells, then the
  // wider one.
  GridShape largest() const {
    GridShape best = {count, 1};
    for (int columns = 2; columns <= count; ++columns) {
      const GridShape shape = {Needed(count, columns), columns};
      if (rank(shape) > rank(best)) best = shape;
    }
    return fits(best) ? best : filled();
  }

  std::tuple<long, int, int> rank(const GridShape& shape) const {
    constexpr double kSteps = 1000;  // differences below are none
    const Box cell = cellIn(shape);
    const double scale =
        std::min(cell.width / cells.across.least(), cell.height / cells.down.least());
    return {std::lround(scale * kSteps), -shape.rows * shape.columns, shape.columns};
  }

  Box cellIn(const GridShape& shape) const {
    return {cells.across.cell(room.width, shape.columns), cells.down.cell(room.height, shape.rows)};
  }

  bool fits(const GridShape& shape) const {
    return cells.across.holds(room.width, shape.columns) &&
           cells.down.holds(room.height, shape.rows);
  }

  GridPlan grownSideways() const {
    const int rows = grid.rows > 0 ? grid.rows : cells.down.capacity(room.height, count);
    const int before = grid.columns > 0 ? grid.columns : cells.across.capacity(room.width, count);
    const GridShape shape = {rows, std::max(grid.columns, Needed(count, rows))};
    if (!cells.down.holds(room.height, rows)) return refused(shape);
    return fitted(shape, {rows, before});
  }

  GridPlan grownDownward() const {
    const int columns = grid.columns > 0 ? grid.columns : cells.across.capacity(room.width, count);
    const int before = grid.rows > 0 ? grid.rows : cells.down.capacity(room.height, count);
    const GridShape shape = {std::max(grid.rows, Needed(count, columns)), columns};
    if (!cells.across.holds(room.width, columns)) return refused(shape);
    return fitted(shape, {before, columns});
  }

  // With the cells that `sizing` has in the room.
  GridPlan fitted(const GridShape& shape, const GridShape& sizing) const {
    // Boxes are whole thousandths; what is rounded up there would be a dot more here.
    const Box cell = cellIn(sizing), largest = LargestIn(symbols, options, cell);
    return {true, shape,
            sizeOf(shape,
                   {std::min(largest.width, cell.width), std::min(largest.height, cell.height)})};
  }

  // Rows and columns that are set may hold too few symbols.
  GridShape missing(const GridShape& shape) const {
    if (shape.holds(count)) return shape;
    return {Needed(count, shape.columns), shape.columns};
  }

  GridPlan refused(const GridShape& shape) const {
    return {false, shape, sizeOf(shape, {cells.across.least(), cells.down.least()})};
  }

  Box sizeOf(const GridShape& shape, const Box& cell) const {
    return {cells.across.length(cell.width, shape.columns),
            cells.down.length(cell.height, shape.rows)};
  }

  std::span<const Symbol> symbols;
  const Options& options;
  const GridOptions& grid;
  Box room;
  int count;
  GridCells cells;
};

}  // namespace

GridCells CellsOf(std::span<const Symbol> symbols, const Options& options) {
  Options smallest = options;
  if (SizeModeOf(options) == SizeMode::kFit) {
    smallest.sizeMode = static_cast<int>(SizeMode::kMinimal);
  }
  const Box least = LargestIn(symbols, smallest, {0, 0});
  const bool upright = options.rotation % 2 == 0;
  const auto gap = [&](std::int32_t set, bool along) {
    if (set >= 0) return Axis::Gap{static_cast<double>(set), 0};
    return along ? GapAlong(symbols) : GapAcross(symbols);
  };
  const auto dot = [&](double dpi) { return DotOf(options, dpi); };
  return {{least.width, gap(options.grid.horizontalDistance, upright), dot(options.dpiX)},
          {least.height, gap(options.grid.verticalDistance, !upright), dot(options.dpiY)}};
}

GridPlan PlanGrid(std::span<const Symbol> symbols, const Options& options, const Box& room) {
  return Planner(symbols, options, room).plan();
}

}  // namespace Library
