#include "library/writer/PclPage.h"

#include "library/bitmap/Bitmap.h"
#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>

namespace Library {

PclPage::PclPage(const Drawing& drawing, const BCRect& rect, int dpi)
    : scale(dpi / kInch), sum(static_cast<double>(rect.top) + rect.bottom) {
  origin = onPage({drawing.box.left, drawing.box.top});
  size = place({drawing.box.right, drawing.box.bottom});
  for (const Rectangle& r : drawing.rectangles) {
    const Place a = place({r.left, r.top}), b = place({r.right, r.bottom});
    bars.push_back({a.x, a.y, std::max(b.x - a.x, 1), std::max(b.y - a.y, 1)});
  }
}

PclPage::Place PclPage::onPage(const Point& p) const {
  return {static_cast<int>(std::lround(p.x * scale)),
          static_cast<int>(std::lround((sum - p.y) * scale))};
}

PclPage::Place PclPage::place(const Point& p) const {
  const Place absolute = onPage(p);
  return {absolute.x - origin.x, absolute.y - origin.y};
}

std::vector<PclPage::Area> PclPage::DotRows(const Drawing& drawing, int dpi) {
  if (drawing.polygons.empty() && drawing.rings.empty()) return {};
  Drawing shapes;
  shapes.polygons = drawing.polygons;
  shapes.rings = drawing.rings;
  const Bitmap bitmap = Rasterized(shapes, drawing.box, dpi, dpi);
  std::vector<Area> rows;
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      if (!bitmap.isInk(x, y)) continue;
      int end = x;
      while (end < bitmap.width && bitmap.isInk(end, y)) ++end;
      rows.push_back({x, y, end - x, 1});
      x = end;
    }
  }
  return rows;
}

}  // namespace Library
