#include "library/grid/GridLayout.h"

#include "library/Error.h"
#include "library/layout/Layout.h"
#include "library/layout/Move.h"
#include "library/layout/Placement.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace Library {
namespace {

template <class Shape>
void AppendTo(std::vector<Shape>& shapes, std::vector<Shape>& added) {
  shapes.insert(shapes.end(), std::make_move_iterator(added.begin()),
                std::make_move_iterator(added.end()));
}

void AppendTo(Drawing& drawing, Drawing&& added) {
  for (BarField& field : added.fields) field.first += drawing.rectangles.size();
  AppendTo(drawing.fields, added.fields);
  AppendTo(drawing.rectangles, added.rectangles);
  AppendTo(drawing.polygons, added.polygons);
  AppendTo(drawing.rings, added.rings);
  AppendTo(drawing.texts, added.texts);
  if (!drawing.tooSmall) drawing.tooSmall = added.tooSmall;
}

// How far back from `place` the last whole dot lies, counted from `origin`.
std::int32_t BackToDot(std::int32_t place, std::int32_t origin, double dpi) {
  const double dot = kInch / dpi, distance = static_cast<double>(place) - origin;
  const double dots = std::floor((distance + kBoxTolerance) / dot);
  return static_cast<std::int32_t>(std::lround(dots * dot - distance));
}

// Symbols that fill their cells have the same modules, so that one distance of the scanner suits
// all: the widest with which each fits. 0: symbols do not fill their cells.
double CommonModule(std::span<const Symbol> symbols, const Options& options, const Box& cell) {
  if (SizeModeOf(options) != SizeMode::kFit) return 0;
  const Box box = options.rotation % 2 == 0 ? cell : Box{cell.height, cell.width};
  double module = std::numeric_limits<double>::max();
  for (const Symbol& symbol : symbols) {
    module = std::min(module, Measure(symbol, options, box).module);
  }
  return module;
}

// Symbols are as long as those modules make them.
Options WithModule(const Options& options, double module) {
  Options sized = options;
  sized.mustFit = false;
  sized.sizeMode = static_cast<int>(SizeMode::kModule);
  sized.moduleWidth = module;
  return sized;
}

// The middle part of that length.
void Shorten(std::int32_t& from, std::int32_t& to, double length) {
  const double whole = std::ceil(std::min(length, static_cast<double>(to - from)));
  const int spare = std::max(to - from - static_cast<int>(whole), 0);
  from += spare / 2;
  to -= spare - spare / 2;
}

class GridPlacer {
 public:
  GridPlacer(std::span<const Symbol> symbols, const Options& settings, const GridShape& gridShape,
             const BCRect& rectangle)
      : options(settings),
        shape(gridShape),
        cells(CellsOf(symbols, settings)),
        room(SizeOf(rectangle)),
        cell{cells.across.cell(room.width, shape.columns),
             cells.down.cell(room.height, shape.rows)},
        size{cells.across.length(cell.width, shape.columns),
             cells.down.length(cell.height, shape.rows)},
        place(0, 0, 0, std::min(rectangle.left, rectangle.right),
              std::min(rectangle.top, rectangle.bottom)),
        module(CommonModule(symbols, settings, cell)),
        sized(WithModule(settings, module)) {
    const bool fits =
        size.width <= room.width + kBoxTolerance && size.height <= room.height + kBoxTolerance;
    if (options.mustFit && !fits) throw Error(BC_E_MUSTFIT);
  }

  Rectangle box() const {
    return place.rectangle(0, 0, std::max(size.width, room.width),
                           std::max(size.height, room.height));
  }

  Drawing draw(const Symbol& symbol, int index) const {
    const Rectangle within = roomOf(symbol, index);
    Drawing drawing =
        LayOut(symbol, options, {within.left, within.top, within.right, within.bottom});
    // Symbols of one grid stand on whole dots together.
    if (DotOf(options) > 0) {
      const Rectangle grid = box();
      Move(drawing, BackToDot(drawing.box.left, grid.left, options.dpiX),
           BackToDot(drawing.box.bottom, grid.bottom, options.dpiY));
    }
    return drawing;
  }

 private:
  Rectangle roomOf(const Symbol& symbol, int index) const {
    Rectangle within = cellOf(index);
    if (module <= 0) return within;
    const Box filled =
        MeasureSymbol(symbol, sized, {within.left, within.top, within.right, within.bottom});
    if (options.rotation % 2 == 0) {
      Shorten(within.left, within.right, filled.width);
    } else {
      Shorten(within.bottom, within.top, filled.height);
    }
    return within;
  }

  Rectangle cellOf(int index) const {
    const double left = index % shape.columns * cells.across.pitch(cell.width);
    const double bottom = (shape.rows - 1 - index / shape.columns) * cells.down.pitch(cell.height);
    return place.rectangle(left, bottom, left + cell.width, bottom + cell.height);
  }

  const Options& options;
  GridShape shape;
  GridCells cells;
  Box room, cell, size;
  Placement place;
  double module;
  Options sized;
};

}  // namespace

Drawing LayOutGrid(std::span<const Symbol> symbols, const Options& options, const GridShape& shape,
                   const BCRect& rectangle) {
  const GridPlacer placer(symbols, options, shape, rectangle);
  Drawing grid = placer.draw(symbols.front(), 0);
  grid.box = placer.box();
  int index = 0;
  for (const Symbol& symbol : symbols.subspan(1)) AppendTo(grid, placer.draw(symbol, ++index));
  return grid;
}

}  // namespace Library
