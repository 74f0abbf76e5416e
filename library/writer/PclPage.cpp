#include "library/writer/PclPage.h"

#include "library/bitmap/Bitmap.h"
#include "library/layout/Dots.h"
#include "library/layout/Move.h"
#include "library/layout/Units.h"
#include "library/writer/PclCover.h"

#include <cmath>
#include <map>
#include <utility>

namespace Library {

PclPage::PclPage(const Drawing& drawing, int dpi) : scale(dpi / kInch) {
  origin = onPage({drawing.box.left, drawing.box.top});
  size = place({drawing.box.right, drawing.box.bottom});
  for (const Rectangle& r : RectanglesOnDots(drawing, dpi, dpi)) {
    bars.push_back({r.left - origin.x, -r.top - origin.y, r.width(), r.height()});
  }
  bars = Covering(bars);
}

PclPage::Place PclPage::onPage(const Point& p) const {
  return {static_cast<int>(std::lround(p.x * scale)), static_cast<int>(std::lround(-p.y * scale))};
}

PclPage::Place PclPage::place(const Point& p) const {
  const Place absolute = onPage(p);
  return {absolute.x - origin.x, absolute.y - origin.y};
}

int PclPage::length(std::int32_t thousandths) const {
  return static_cast<int>(std::lround(thousandths * scale));
}

std::vector<PclPage::Area> PclPage::DotRows(const Drawing& drawing, int dpi) {
  if (drawing.polygons.empty() && drawing.rings.empty()) return {};
  Drawing shapes;
  shapes.polygons = drawing.polygons;
  shapes.rings = drawing.rings;
  const Rectangle& box = drawing.box;
  Move(shapes, -box.left, -box.bottom);
  const Bitmap bitmap = Rasterized(
      shapes, {static_cast<double>(box.width()), static_cast<double>(box.height())}, dpi, dpi);
  using Run = std::pair<int, int>;  // begin and width
  std::vector<Area> areas;
  std::map<Run, std::size_t> above;  // the areas that the last row belongs to
  for (int y = 0; y < bitmap.height; ++y) {
    std::map<Run, std::size_t> row;
    for (int x = 0; x < bitmap.width; ++x) {
      if (!bitmap.isInk(x, y)) continue;
      int end = x;
      while (end < bitmap.width && bitmap.isInk(end, y)) ++end;
      const Run run = {x, end - x};
      const auto same = above.find(run);
      if (same != above.end()) {
        ++areas[same->second].height;
        row.insert(*same);
      } else {
        row.emplace(run, areas.size());
        areas.push_back({x, y, end - x, 1});
      }
      x = end;
    }
    above = std::move(row);
  }
  return Covering(areas);
}

}  // namespace Library
