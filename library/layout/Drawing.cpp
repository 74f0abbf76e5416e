#include "library/layout/Drawing.h"

#include <algorithm>
#include <tuple>

namespace Library {

// Most come row by row already, so each run of equal tops is sorted by itself if it can be.
void SortRows(std::span<Rectangle> rectangles) {
  const auto before = [](const Rectangle& a, const Rectangle& b) {
    return std::tie(b.top, b.bottom, a.left, a.right) < std::tie(a.top, a.bottom, b.left, b.right);
  };
  const auto beforeInRow = [](const Rectangle& a, const Rectangle& b) {
    if (a.bottom != b.bottom) return a.bottom > b.bottom;
    return a.left != b.left ? a.left < b.left : a.right < b.right;
  };
  for (auto row = rectangles.begin(); row != rectangles.end();) {
    bool sorted = true;
    auto next = row + 1;
    for (; next != rectangles.end() && next->top == row->top; ++next) {
      sorted = sorted && !beforeInRow(*next, *(next - 1));
    }
    if (next != rectangles.end() && next->top > row->top) {
      return std::sort(rectangles.begin(), rectangles.end(), before);
    }
    if (!sorted) std::sort(row, next, beforeInRow);
    row = next;
  }
}

}  // namespace Library
