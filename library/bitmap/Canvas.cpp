#include "library/bitmap/Canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Library {
namespace {

// The first pixel whose centre lies at `x` or behind, inside of 0..limit.
int FirstPixel(double x, int limit) {
  return static_cast<int>(std::clamp(std::ceil(x - 0.5), 0.0, static_cast<double>(limit)));
}

}  // namespace

void Canvas::fillRun(int left, int right, int y) {
  std::uint8_t* const row = &bitmap.bits[static_cast<std::size_t>(y) * bitmap.stride()];
  for (int x = left; x < right;) {
    if ((x & 7) == 0 && right - x >= 8) {
      row[x >> 3] = 0xFF;
      x += 8;
    } else {
      row[x >> 3] = static_cast<std::uint8_t>(row[x >> 3] | 0x80 >> (x & 7));
      ++x;
    }
  }
}

void Canvas::fillRectangle(int left, int top, int right, int bottom) {
  left = std::max(left, 0);
  right = std::min(right, bitmap.width);
  for (int y = std::max(top, 0); y < std::min(bottom, bitmap.height); ++y) fillRun(left, right, y);
}

void Canvas::addContour(std::span<const Place> corners) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Place &a = corners[i], &b = corners[(i + 1) % corners.size()];
    if (a.y == b.y) continue;
    const double slope = (b.x - a.x) / (b.y - a.y);
    edges.push_back(
        {std::min(a.y, b.y), std::max(a.y, b.y), a.x - a.y * slope, slope, a.y < b.y ? 1 : -1});
  }
}

void Canvas::fill() {
  std::ranges::sort(edges, {}, &Edge::top);
  const int end =
      edges.empty() ? 0
                    : FirstPixel(std::ranges::max(edges, {}, &Edge::bottom).bottom, bitmap.height);
  std::vector<const Edge*> open;
  std::vector<std::pair<double, int>> crossings;
  auto next = edges.begin();
  for (int y = edges.empty() ? 0 : FirstPixel(edges.front().top, bitmap.height); y < end; ++y) {
    const double centre = y + 0.5;
    for (; next != edges.end() && next->top <= centre; ++next) open.push_back(&*next);
    std::erase_if(open, [centre](const Edge* edge) { return edge->bottom <= centre; });
    crossings.clear();
    for (const Edge* edge : open) {
      crossings.emplace_back(edge->x + centre * edge->slope, edge->winding);
    }
    std::ranges::sort(crossings);
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
      winding += crossings[i].second;
      if (winding == 0) continue;
      fillRun(FirstPixel(crossings[i].first, bitmap.width),
              FirstPixel(crossings[i + 1].first, bitmap.width), y);
    }
  }
  edges.clear();
}

}  // namespace Library
