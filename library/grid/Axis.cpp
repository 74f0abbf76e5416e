#include "library/grid/Axis.h"

#include "library/layout/Units.h"

#include <algorithm>
#include <cmath>

namespace Library {

double Axis::pitch(double cell) const {
  constexpr double kNoise = 1e-6;  // dots
  if (dotLength <= 0) return grown(cell);
  return std::ceil(grown(cell) / dotLength - kNoise) * dotLength;
}

double Axis::cell(double room, int count) const {
  const double gaps = count - 1;
  double largest = (room - gaps * between.length) / (count + gaps * between.share);
  if (dotLength > 0 && count > 1) {
    // Of the whole dots below and above, the ones that leave more: the last cell needs no gap.
    const double low = std::floor(grown(largest) / dotLength) * dotLength, high = low + dotLength;
    largest = std::max(shrunk(low), room - gaps * high);
  }
  return std::max(largest, leastCell);
}

bool Axis::holds(double room, int count) const {
  return length(leastCell, count) <= room + kBoxTolerance;
}

int Axis::capacity(double room, int limit) const {
  const double more = std::floor((room + kBoxTolerance - leastCell) / pitch(leastCell));
  return static_cast<int>(std::clamp(more + 1, 1.0, static_cast<double>(limit)));
}

}  // namespace Library
