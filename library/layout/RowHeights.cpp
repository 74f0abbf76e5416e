#include "library/layout/RowHeights.h"

#include "library/layout/Units.h"
#include "library/symbology/Symbology.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Library {
namespace {

constexpr double kLogisticsMinimum = 6350, kLogisticsShare = 0.15;
constexpr double kGeneralMinimum = 5 * kMillimetre;

// Rows that have to fill a box may shrink to this share of their nominal height.
constexpr double kLeastScale = 0.5;

// Height of a linear symbol, or of the linear part of a composite one, when nothing asks for more.
double LinearMinimum(const Family& family, const RowSpace& space) {
  if (family.leastHeight > 0) return family.leastHeight * space.module;
  if (family.minimalHeight != MinimalHeight::kLogistics) return kGeneralMinimum;
  return std::max(kLogisticsShare * space.width, kLogisticsMinimum);
}

SetHeights SetHeightsOf(const Family& family, const Options& options) {
  return family.setHeights == nullptr ? SetHeights() : family.setHeights(options);
}

bool IsFlexible(const SymbolRow& row) {
  return row.height <= 0;
}

bool Stretches(const SymbolRow& row) {
  return !row.rigid && !IsSeparator(row);
}

// Rows of fixed height fill the box when there is no other that could; separators stay.
void Stretch(const Symbol& symbol, double room, std::vector<double>& heights) {
  double stretching = 0, all = 0;
  for (std::size_t i = 0; i < heights.size(); ++i) {
    all += heights[i];
    if (Stretches(symbol.rows[i])) stretching += heights[i];
  }
  if (stretching <= 0) return;
  const double scale = (room - (all - stretching)) / stretching;
  if ((kLeastScale - scale) * stretching > kBoxTolerance) return;
  for (std::size_t i = 0; i < heights.size(); ++i) {
    if (Stretches(symbol.rows[i])) heights[i] *= scale;
  }
}

}  // namespace

bool IsSeparator(const SymbolRow& row) {
  return row.height > 0 && row.height <= 1;
}

double HexagonRowsHeight(const Symbol& symbol) {
  // Rows are cos 30 degrees apart; a hexagon stands on its tip.
  const double pitch = std::sqrt(3.0) / 2, tall = 2 / std::sqrt(3.0);
  return pitch * (static_cast<double>(symbol.rows.size()) - 1) + tall;
}

double LeastRowsHeight(const Symbol& symbol, const Options& options, double module) {
  const Family& family = FindSymbology(symbol.type)->family;
  const bool linear = family.minimalHeight != MinimalHeight::kNone || family.rowHeight <= 0;
  const bool anyFlexible = std::any_of(symbol.rows.begin(), symbol.rows.end(), IsFlexible);
  const SetHeights set = SetHeightsOf(family, options);
  double fixed = 0, flexible = 0;
  for (const SymbolRow& row : symbol.rows) {
    if (IsFlexible(row)) {
      flexible += linear ? kLeastBarHeight : kLeastScale * family.rowHeight * module;
    } else if (IsSeparator(row) && set.separator >= 0) {
      fixed += set.separator;
    } else {
      fixed += row.height * module * (!anyFlexible && Stretches(row) ? kLeastScale : 1);
    }
  }
  return linear && fixed <= 0 ? 0 : fixed + flexible;
}

std::vector<double> RowHeights(const Symbol& symbol, const Options& options, SizeMode mode,
                               const RowSpace& space) {
  const Symbology& type = *FindSymbology(symbol.type);
  const SetHeights set = SetHeightsOf(type.family, options);
  const bool linear =
      type.family.minimalHeight != MinimalHeight::kNone || type.family.rowHeight <= 0;
  const double own = linear        ? LinearMinimum(type.family, space)
                     : set.row > 0 ? set.row
                                   : type.family.rowHeight * space.module;
  std::vector<double> heights;
  double fixed = 0;
  int flexible = 0;
  for (const SymbolRow& row : symbol.rows) {
    const bool setSeparator = IsSeparator(row) && set.separator >= 0;
    heights.push_back(setSeparator ? set.separator : row.height * space.module);
    fixed += heights.back();
    flexible += IsFlexible(row);
  }
  if (flexible == 0) {
    if (mode == SizeMode::kFit) Stretch(symbol, space.height, heights);
    return heights;
  }
  double share = own;
  const double room = (space.height - fixed) / flexible;
  const double least =
      linear ? kLeastBarHeight : kLeastScale * type.family.rowHeight * space.module;
  if (mode == SizeMode::kFit && room >= least - kBoxTolerance) share = room;
  if (mode == SizeMode::kModule && linear) share = std::max(room, own);
  for (std::size_t i = 0; i < heights.size(); ++i) {
    if (IsFlexible(symbol.rows[i])) heights[i] = share;
  }
  return heights;
}

}  // namespace Library
