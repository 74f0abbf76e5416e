#include "library/layout/Bars.h"

#include "library/layout/ElementWidths.h"
#include "library/layout/ModuleGrid.h"
#include "library/layout/Outline.h"
#include "library/layout/Units.h"

#include <algorithm>

namespace Library {
namespace {

// A bar stays at least this wide, and so does a space.
constexpr double kLeastElement = 0.25;

// Joins the bars of a row with those that end where it begins.
class Stack {
 public:
  // `row`: from left to right.
  void add(const std::vector<Bar>& row) {
    std::vector<std::size_t> next;
    auto open = lowest.begin();
    for (const Bar& bar : row) {
      while (open != lowest.end() && bars[*open].left < bar.left) ++open;
      if (open != lowest.end() && continues(bars[*open], bar)) {
        bars[*open].bottom = bar.bottom;
        next.push_back(*open);
      } else {
        next.push_back(bars.size());
        bars.push_back(bar);
      }
    }
    lowest = std::move(next);
  }

  std::vector<Bar> bars;

 private:
  static bool continues(const Bar& upper, const Bar& lower) {
    return upper.left == lower.left && upper.right == lower.right && upper.bottom == lower.top;
  }

  std::vector<std::size_t> lowest;  // the bars of the last row
};

bool IsInside(int module, const ModuleSpan& span) {
  return module >= span.from && module < span.to;
}

std::vector<Bar> LayOutMatrix(const Symbol& symbol, double reduction, const Measures& m) {
  const ModuleGrid grid = ModuleGrid(symbol).narrowed(reduction / m.module);
  Stack stack;
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    std::vector<Bar> bars;
    for (const ModuleGrid::Run& run : grid.runs(row)) {
      bars.push_back({m.left + run.from * m.module, m.top - grid.bottomOf(row) * m.module,
                      m.left + run.to * m.module, m.top - grid.topOf(row) * m.module});
    }
    stack.add(bars);
  }
  return std::move(stack.bars);
}

}  // namespace

BarEnds LastRowEnds(const Symbol& symbol, const Measures& m, int module, BarEnds row) {
  const bool addOn = IsInside(module, symbol.addOn);
  if (addOn) row.top -= m.text.addOnDrop();
  if (addOn || std::any_of(symbol.guards.begin(), symbol.guards.end(),
                           [module](const ModuleSpan& span) { return IsInside(module, span); })) {
    row.bottom -= m.guardDrop;
  }
  return row;
}

double BarReduction(const Options& options, double narrowBar, double x) {
  const int unit = options.reductionUnit == kUnitNone ? kUnitPercent : options.reductionUnit;
  const double reduction = options.reduction * LengthOf(unit, options.dpiX, x).value_or(0);
  return std::clamp(reduction, -(1 - kLeastElement) * x,
                    std::max(narrowBar - kLeastElement, 0.0) * x);
}

std::vector<Bar> LayOutBars(const Symbol& symbol, const Options& options, const Measures& m) {
  const ElementWidths widths(symbol, options.ratio);
  const double reduction = BarReduction(options, widths.narrowBar(), m.module);
  if (symbol.geometry == Geometry::kMatrix) return LayOutMatrix(symbol, reduction, m);
  Stack stack;
  double top = m.top;
  for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
    const bool last = row + 1 == symbol.rows.size();
    const double bottom = last ? m.bottom : top - m.rowHeights[row];
    std::vector<Bar> bars;
    const Columns columns(symbol.rows[row], symbol.width, widths);
    for (const Columns::Bar& column : columns.bars()) {
      BarEnds ends = {bottom, top};
      if (last) ends = LastRowEnds(symbol, m, column.firstModule, ends);
      bars.push_back({m.left + column.left * m.module + reduction / 2, ends.bottom,
                      m.left + column.right * m.module - reduction / 2, ends.top});
    }
    stack.add(bars);
    top = bottom;
  }
  return std::move(stack.bars);
}

std::vector<Bar> LayOutBearerBars(const Measures& m) {
  const double thickness = m.bearer;
  if (thickness <= 0) return {};
  const int type = m.bearerType;
  const bool frame = HasBearerFrame(type);
  const double left = frame ? 0 : m.left, right = frame ? m.width : m.right;
  std::vector<Bar> bars;
  if (HasBearerAbove(type)) bars.push_back({left, m.top, right, m.top + thickness});
  if (HasBearerBelow(type)) bars.push_back({left, m.bottom - thickness, right, m.bottom});
  if (frame) {
    bars.push_back({0, m.bottom, thickness, m.top});
    bars.push_back({m.width - thickness, m.bottom, m.width, m.top});
  }
  return bars;
}

}  // namespace Library
