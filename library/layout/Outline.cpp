#include "library/layout/Outline.h"

#include "library/layout/Bars.h"
#include "library/layout/ElementWidths.h"
#include "library/layout/Measure.h"
#include "library/layout/Units.h"
#include "library/symbology/Symbology.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

enum BearerType : int { kNone, kTopAndBottom, kFrame, kTop, kBottom };

// Bearer bars of ITF-14 are 4.8 mm where a printing plate presses on them; 5 X do for all else.
constexpr double kBearerModules = 5;
constexpr double kMaxDefaultBearer = 4800;

// Between a frame and the bars, so that a reader sees no bar in the frame (ISO/IEC 16390).
constexpr double kFrameQuietModules = 10;

constexpr double kGuardDropModules = 5;

double ModulesAcross(const Symbol& symbol, std::string_view ratio) {
  const ElementWidths widths(symbol, ratio);
  if (widths.areNominal()) return symbol.width;
  double modules = 0;
  for (const SymbolRow& row : symbol.rows) {
    modules = std::max(modules, Columns(row, symbol.width, widths).width());
  }
  return modules;
}

// What is asked for, else the bar that belongs to the symbol.
int BearerTypeOf(const Symbol& symbol, const Options& options, double topBar) {
  if (symbol.geometry != Geometry::kLinear) return kNone;
  if (options.bearerBarType != kNone) return options.bearerBarType;
  return topBar > 0 ? kTop : kNone;
}

}  // namespace

bool HasBearerFrame(int type) {
  return type == kFrame;
}
bool HasBearerAbove(int type) {
  return type == kTopAndBottom || type == kFrame || type == kTop;
}
bool HasBearerBelow(int type) {
  return type == kTopAndBottom || type == kFrame || type == kBottom;
}

Outline::Outline(const Symbol& symbol, const Options& settings, const TextPlan& textPlan)
    : options(settings),
      plan(textPlan),
      columns(ModulesAcross(symbol, settings.ratio)),
      topBar(FindSymbology(symbol.type)->family.topBar),
      type(BearerTypeOf(symbol, settings, topBar)),
      guards(!symbol.guards.empty()),
      matrix(symbol.geometry == Geometry::kMatrix || symbol.geometry == Geometry::kDots) {}

// How far bars that are made wider reach beyond their place, which they do on the outside, too.
double Outline::widening(double x) const {
  if (options.reduction >= 0) return 0;
  return std::max(-BarReduction(options, 1, x), 0.0) / 2;
}

// With whole dots asked for, margins are whole dots too, so that every bar begins on one.
double Outline::onDots(double length) const {
  const double dot = DotOf(options);
  if (dot <= 0) return length;
  return std::round(length / dot) * dot;
}

double Outline::quiet(double value, double dpi, double x) const {
  return value * LengthOf(options.quietZoneUnit, dpi, x).value_or(0);
}

double Outline::side(double quietZone, int textModules, double x) const {
  double margin = std::max(quiet(quietZone, options.dpiX, x), textModules * x);
  if (HasBearerFrame(type)) {
    margin = std::max(margin, kFrameQuietModules * x) + bearer(x);
  }
  return onDots(std::max(margin, widening(x)));
}

double Outline::bearer(double x) const {
  if (type == kNone) return 0;
  if (options.bearerBarWidth > 0) return onDots(options.bearerBarWidth);
  const double modules = topBar > 0 ? topBar : kBearerModules;
  return onDots(std::min(modules * x, kMaxDefaultBearer));
}

double Outline::guardDrop(double x) const {
  if (!guards) return 0;
  if (options.notchHeight >= 0) return options.notchHeight;
  return plan.standsBetweenGuards() ? kGuardDropModules * x : 0;
}

double Outline::above(double x) const {
  const double bar = HasBearerAbove(type) ? bearer(x) : 0;
  return bar + plan.bandAbove() +
         std::max(quiet(options.quietZone.top, options.dpiY, x), matrix ? widening(x) : 0);
}

double Outline::below(double x) const {
  const double bar = HasBearerBelow(type) ? bearer(x) : 0;
  return std::max(bar + plan.bandBelow(), guardDrop(x)) +
         std::max(quiet(options.quietZone.bottom, options.dpiY, x), matrix ? widening(x) : 0);
}

}  // namespace Library
