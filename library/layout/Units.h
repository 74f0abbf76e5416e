// Lengths as the layout counts them: thousandths of a millimetre, as doubles until the very end.
#pragma once

#include <cmath>
#include <optional>

namespace Library {

constexpr double kMillimetre = 1000;
constexpr double kInch = 25400;
constexpr double kMil = kInch / 1000;
constexpr double kPoint = kInch / 72;

// What callers hand over who know no resolution.
constexpr double kUnknownDpi = 72;

// Corners of a box are rounded to a thousandth of a millimetre each, so a box may be this much
// smaller than what it was measured for.
constexpr double kBoxTolerance = 2;

// Units of the interface: one numbering for quiet zones, reductions and sizes.
enum Unit : int {
  kUnitNone = 0,
  kUnitPixel = 1,
  kUnitMillimetre = 2,
  kUnitMil = 3,
  kUnitInch = 4,
  kUnitModule = 5,
  kUnitPercent = 6,
};

// The length of one unit; nothing for the units that are none.
inline std::optional<double> LengthOf(int unit, double dpi, double module) {
  switch (unit) {
    case kUnitPixel:
      return kInch / dpi;
    case kUnitMillimetre:
      return kMillimetre;
    case kUnitMil:
      return kMil;
    case kUnitInch:
      return kInch;
    case kUnitModule:
      return module;
    case kUnitPercent:
      return module / 100;
    default:
      return std::nullopt;
  }
}

}  // namespace Library
