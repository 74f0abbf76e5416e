// Lengths on their way to the barcode library: millimetres in the settings, whole thousandths of a
// millimetre in its calls. Settings are truncated, placements rounded, requested sizes rounded up.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Engine {

// Truncated toward zero. A job may hold any number: what doesn't fit becomes the nearest that does,
// a NaN 0.
inline std::int32_t ToInt32(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

inline std::int32_t TruncatedThousandths(double millimetres) {
  return ToInt32(millimetres * 1000);
}

inline std::int32_t RoundedThousandths(double millimetres) {
  return ToInt32(millimetres * 1000 + 0.5);
}

inline std::int32_t RoundedUpThousandths(double millimetres) {
  return ToInt32(std::ceil(millimetres * 1000));
}

}  // namespace Engine
