#include "library/layout/Bars.h"

#include "library/layout/ElementWidths.h"
#include "library/layout/ModuleGrid.h"
#include "library/layout/Outline.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <limits>

namespace Library {
namespace {

// A bar stays at least this wide, and so does a space.
constexpr double kLeastElement = 0.25;

// Joins the bars of a row with those that end where it begins.
class Stack {
 public:
  explicit Stack(const Symbol& symbol) {
    std::size_t most = 0, mostOfRow = 0;
    for (const SymbolRow& row : symbol.rows) {
      const std::size_t ofRow = row.runs.size() / 2 + 1;
      most += ofRow;
      mostOfRow = std::max(mostOfRow, ofRow);
    }
    bars.reserve(most);
    lowest.reserve(mostOfRow);
    added.reserve(mostOfRow);
  }

  void beginRow() {
    lowest.swap(added);
    added.clear();
    open = lowest.begin();
  }

  // From left to right.
  void add(const Bar& bar) {
    while (open != lowest.end() && bars[*open].left < bar.left) ++open;
    if (open != lowest.end() && continues(bars[*open], bar)) {
      bars[*open].bottom = bar.bottom;
      added.push_back(*open);
    } else {
      added.push_back(bars.size());
      bars.push_back(bar);
    }
  }

  std::vector<Bar> bars;

 private:
  static bool continues(const Bar& upper, const Bar& lower) {
    return upper.left == lower.left && upper.right == lower.right && upper.bottom == lower.top;
  }

  std::vector<std::size_t> lowest, added;  // the bars of the last row and of this one
  std::vector<std::size_t>::const_iterator open;
};

bool IsInside(int module, const ModuleSpan& span) {
  return module >= span.from && module < span.to;
}

std::vector<Bar> LayOutModules(const Symbol& symbol, const Measures& m) {
  Stack stack(symbol);
  double row = 0;
  for (const SymbolRow& modules : symbol.rows) {
    const double top = m.top - row * m.module, bottom = m.top - ++row * m.module;
    stack.beginRow();
    int column = 0;
    bool dark = true;
    for (const int run : modules.runs) {
      if (dark && run > 0) {
        stack.add({m.left + column * m.module, bottom, m.left + (column + run) * m.module, top});
      }
      column += run;
      dark = !dark;
    }
  }
  return std::move(stack.bars);
}

std::vector<Bar> LayOutNarrowed(const Symbol& symbol, double reduction, const Measures& m) {
  const ModuleGrid grid = ModuleGrid(symbol).narrowed(reduction / m.module);
  Stack stack(symbol);
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    stack.beginRow();
    for (const ModuleGrid::Run& run : grid.runs(row)) {
      stack.add({m.left + run.from * m.module, m.top - grid.bottomOf(row) * m.module,
                 m.left + run.to * m.module, m.top - grid.topOf(row) * m.module});
    }
  }
  return std::move(stack.bars);
}

// Calls draw(row, bar) for each bar as it is before any are joined, row by row.
template <class Draw>
void ForEachBar(const Symbol& symbol, const Options& options, const Measures& m, Draw&& draw) {
  const ElementWidths widths(symbol, options.ratio);
  const double half = BarReduction(options, widths.narrowBar(), m.module) / 2;
  const bool alike = !HasUnequalBars(symbol);
  double top = m.top;
  for (std::size_t row = 0; row < symbol.rows.size(); ++row) {
    const bool last = row + 1 == symbol.rows.size();
    const double bottom = last ? m.bottom : top - m.rowHeights[row];
    Columns(symbol.rows[row], symbol.width, widths).forEachBar([&](const Columns::Bar& column) {
      BarEnds ends = {bottom, top};
      if (last && !alike) ends = LastRowEnds(symbol, m, column.firstModule, ends);
      draw(row, Bar{m.left + column.left * m.module + half, ends.bottom,
                    m.left + column.right * m.module - half, ends.top});
    });
    top = bottom;
  }
}

}  // namespace

bool HasUnequalBars(const Symbol& symbol) {
  return symbol.addOn.to > symbol.addOn.from || !symbol.guards.empty();
}

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
  if (symbol.geometry == Geometry::kMatrix) {
    const ElementWidths widths(symbol, options.ratio);
    const double reduction = BarReduction(options, widths.narrowBar(), m.module);
    return reduction == 0 ? LayOutModules(symbol, m) : LayOutNarrowed(symbol, reduction, m);
  }
  Stack stack(symbol);
  std::size_t current = symbol.rows.size();
  ForEachBar(symbol, options, m, [&](std::size_t row, const Bar& bar) {
    if (row != current) stack.beginRow();
    current = row;
    stack.add(bar);
  });
  return std::move(stack.bars);
}

std::optional<Bar> BoundsOfBars(const Symbol& symbol, const Options& options, const Measures& m) {
  constexpr double kFar = std::numeric_limits<double>::max();
  Bar bounds = {kFar, kFar, -kFar, -kFar};
  ForEachBar(symbol, options, m, [&bounds](std::size_t, const Bar& bar) {
    bounds.left = std::min(bounds.left, bar.left);
    bounds.bottom = std::min(bounds.bottom, bar.bottom);
    bounds.right = std::max(bounds.right, bar.right);
    bounds.top = std::max(bounds.top, bar.top);
  });
  return bounds.left == kFar ? std::nullopt : std::optional(bounds);
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
