#include "library/layout/Placement.h"

#include "library/Error.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

// Leaves room for sums and differences of two coordinates in 32 bits.
constexpr double kMaxCoordinate = 1e9;

// As std::lround does, without a call for each of the many corners.
std::int32_t Round(double value) {
  if (!(std::abs(value) <= kMaxCoordinate)) throw Error(BC_E_INVALIDARG);
  const auto whole = static_cast<std::int32_t>(value);
  const double rest = value - whole;
  return whole + (rest >= 0.5) - (rest <= -0.5);
}

}  // namespace

Point Placement::point(double x, double y) const {
  switch (turns) {
    case 1:
      return {Round(left + height - y), Round(bottom + x)};
    case 2:
      return {Round(left + width - x), Round(bottom + height - y)};
    case 3:
      return {Round(left + y), Round(bottom + width - x)};
    default:
      return {Round(left + x), Round(bottom + y)};
  }
}

Rectangle Placement::rectangle(double x0, double y0, double x1, double y1) const {
  const Point a = point(x0, y0), b = point(x1, y1);
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

std::int32_t Placement::length(double value) const {
  return Round(value);
}

Point Placement::turned(double x, double y) const {
  switch (turns) {
    case 1:
      return {Round(-y), Round(x)};
    case 2:
      return {Round(-x), Round(-y)};
    case 3:
      return {Round(y), Round(-x)};
    default:
      return {Round(x), Round(y)};
  }
}

}  // namespace Library
