#include "library/layout/Hexagons.h"

#include "library/layout/ElementWidths.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Library {
namespace {

// Dark hexagons are drawn a little smaller than their cells: ink and heat spread.
constexpr int kDefaultUndercut = 10;
constexpr double kLeastHexagon = 0.25;

// ISO/IEC 16023: millimetres at a pitch of 0.88 mm.
constexpr double kNominalPitch = 0.88;
struct RingRadii {
  double outer, inner;
};
constexpr RingRadii kBullseye[] = {{1.18, 0.51}, {2.53, 1.86}, {3.87, 3.20}};
constexpr int kBullseyeRow = 16;
constexpr double kBullseyeColumn = 14.5;

struct Offset {
  double x, y;
};

double Shrink(const Options& options) {
  const int undercut = options.maxi.underCut >= 0 ? options.maxi.underCut : kDefaultUndercut;
  return std::max(1 - undercut / 100.0, kLeastHexagon);
}

// Corners of a hexagon one wide, counter-clockwise from the right.
std::array<Offset, 6> UnitHexagon() {
  const double tip = 1 / std::sqrt(3.0);
  return {
      {{0.5, tip / 2}, {0, tip}, {-0.5, tip / 2}, {-0.5, -tip / 2}, {0, -tip}, {0.5, -tip / 2}}};
}

class HexagonGrid {
 public:
  explicit HexagonGrid(const Measures& m) : measures(m) {}
  double x(double column) const { return measures.left + column * measures.module; }
  double y(int row) const {
    const double tip = 1 / std::sqrt(3.0), pitch = std::sqrt(3.0) / 2;
    return measures.top - (tip + pitch * row) * measures.module;
  }

 private:
  const Measures& measures;
};

}  // namespace

void DrawHexagons(const Symbol& symbol, const Options& options, const Measures& m,
                  const Placement& placement, Drawing& drawing) {
  const HexagonGrid grid(m);
  const ElementWidths widths(symbol, {});
  const double size = m.module * Shrink(options);
  std::vector<Point> corners;
  for (const Offset& corner : UnitHexagon()) {
    corners.push_back(placement.turned(corner.x * size, corner.y * size));
  }
  for (int row = 0; row < static_cast<int>(symbol.rows.size()); ++row) {
    const Columns modules(symbol.rows[static_cast<std::size_t>(row)], symbol.width, widths);
    const double shift = row % 2 == 0 ? 0.5 : 1;
    modules.forEachBar([&](const Columns::Bar& run) {
      for (double column = run.left; column < run.right; ++column) {
        const Point centre = placement.point(grid.x(column + shift), grid.y(row));
        Polygon& hexagon = drawing.polygons.emplace_back();
        for (const Point& c : corners) hexagon.points.push_back({centre.x + c.x, centre.y + c.y});
      }
    });
  }
  const Point centre = placement.point(grid.x(kBullseyeColumn), grid.y(kBullseyeRow));
  const double scale = m.module / kNominalPitch;
  for (const RingRadii& ring : kBullseye) {
    drawing.rings.push_back(
        {centre, placement.length(ring.outer * scale), placement.length(ring.inner * scale)});
  }
}

}  // namespace Library
