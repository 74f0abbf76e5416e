#include "library/writer/PclCover.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Library {
namespace {

using Area = PclPage::Area;

// All edges in one direction, in order.
std::vector<int> EdgesOf(const std::vector<Area>& areas, int Area::*begin, int Area::*size) {
  std::vector<int> edges;
  for (const Area& area : areas) {
    edges.push_back(area.*begin);
    edges.push_back(area.*begin + area.*size);
  }
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

std::size_t IndexOf(const std::vector<int>& edges, int edge) {
  return static_cast<std::size_t>(std::ranges::lower_bound(edges, edge) - edges.begin());
}

// Ink in the cells between all edges.
class Cells {
 public:
  Cells(std::vector<int> columnEdges, std::vector<int> rowEdges)
      : xs(std::move(columnEdges)),
        ys(std::move(rowEdges)),
        cells((xs.size() - 1) * (ys.size() - 1)) {}

  void add(const Area& area) {
    mark({IndexOf(xs, area.left), IndexOf(ys, area.top), IndexOf(xs, area.left + area.width),
          IndexOf(ys, area.top + area.height)},
         kInk);
  }

  // From the upper left, always the larger of the two areas that begin in the next cell: as wide
  // as the row's ink and then down, or as high as the column's and then to the right.
  std::vector<Area> cover() {
    std::vector<Area> areas;
    for (std::size_t y = 0; y + 1 < ys.size(); ++y) {
      for (std::size_t x = 0; x + 1 < xs.size(); ++x) {
        if (at(x, y) != kInk) continue;
        Span wide = {x, y, x + 1, y + 1}, high = wide;
        growRight(wide);
        growDown(wide);
        growDown(high);
        growRight(high);
        const Span& span = gain(wide) >= gain(high) ? wide : high;
        mark(span, kCovered);
        areas.push_back({xs[span.left], ys[span.top], xs[span.right] - xs[span.left],
                         ys[span.bottom] - ys[span.top]});
      }
    }
    return areas;
  }

 private:
  enum Cell : unsigned char { kPaper, kInk, kCovered };
  struct Span {
    std::size_t left, top, right, bottom;
  };

  Cell& at(std::size_t x, std::size_t y) { return cells[y * (xs.size() - 1) + x]; }
  std::size_t count(const Span& span, Cell cell) {
    std::size_t number = 0;
    for (std::size_t y = span.top; y < span.bottom; ++y) {
      for (std::size_t x = span.left; x < span.right; ++x) number += at(x, y) == cell;
    }
    return number;
  }
  void mark(const Span& span, Cell cell) {
    for (std::size_t y = span.top; y < span.bottom; ++y) {
      for (std::size_t x = span.left; x < span.right; ++x) at(x, y) = cell;
    }
  }
  std::size_t gain(const Span& span) { return count(span, kInk); }

  // No farther than to the last ink that is not covered.
  void growRight(Span& span) {
    for (std::size_t x = span.right; x + 1 < xs.size(); ++x) {
      const Span column = {x, span.top, x + 1, span.bottom};
      if (count(column, kPaper) > 0) return;
      if (count(column, kInk) > 0) span.right = x + 1;
    }
  }
  void growDown(Span& span) {
    for (std::size_t y = span.bottom; y + 1 < ys.size(); ++y) {
      const Span row = {span.left, y, span.right, y + 1};
      if (count(row, kPaper) > 0) return;
      if (count(row, kInk) > 0) span.bottom = y + 1;
    }
  }

  std::vector<int> xs, ys;
  std::vector<Cell> cells;
};

}  // namespace

std::vector<Area> Covering(const std::vector<Area>& areas) {
  constexpr std::size_t kMostCells = 1000000;
  if (areas.empty()) return areas;
  std::vector<int> xs = EdgesOf(areas, &Area::left, &Area::width);
  std::vector<int> ys = EdgesOf(areas, &Area::top, &Area::height);
  if (ys.size() == 2 || xs.size() == 2 || xs.size() * ys.size() > kMostCells) return areas;
  Cells cells(std::move(xs), std::move(ys));
  for (const Area& area : areas) cells.add(area);
  std::vector<Area> cover = cells.cover();
  return cover.size() < areas.size() ? cover : areas;
}

}  // namespace Library
