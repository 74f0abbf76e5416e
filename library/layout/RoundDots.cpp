#include "library/layout/RoundDots.h"

#include "library/layout/Bars.h"
#include "library/layout/ElementWidths.h"

#include <algorithm>

namespace Library {
namespace {

// Of X: ink spreads, and dots that join are none.
constexpr double kDiameter = 0.8, kLeastDiameter = 0.4, kLargestDiameter = 1.2;

}  // namespace

void DrawRoundDots(const Symbol& symbol, const Options& options, const Measures& m,
                   const Placement& placement, Drawing& drawing) {
  const ElementWidths widths(symbol, {});
  const double reduced = kDiameter * m.module - BarReduction(options, 1, m.module);
  const double diameter =
      std::clamp(reduced, kLeastDiameter * m.module, kLargestDiameter * m.module);
  const std::int32_t radius = placement.length(diameter / 2);
  double y = m.top - m.module / 2;
  for (const SymbolRow& row : symbol.rows) {
    Columns(row, symbol.width, widths).forEachBar([&](const Columns::Bar& run) {
      for (double column = run.left; column < run.right; ++column) {
        const double x = m.left + (column + 0.5) * m.module;
        drawing.rings.push_back({placement.point(x, y), radius, 0});
      }
    });
    y -= m.module;
  }
}

}  // namespace Library
