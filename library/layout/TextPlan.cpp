#include "library/layout/TextPlan.h"

#include "library/layout/Units.h"
#include "library/symbology/Symbology.h"

#include <algorithm>

namespace Library {
namespace {

constexpr double kDefaultDistance = 500;

bool IsShown(const Symbol& symbol, const Options& options) {
  if (symbol.texts.empty()) return false;
  if (options.printText >= 0) return options.printText != 0;
  const Symbology* type = FindSymbology(symbol.type);
  return type && type->family.textShown;
}

}  // namespace

double TextPlan::bandAbove() const {
  if (!shown) return 0;
  const double digits = above && (hasDigits || hasAddOn) ? digitsBand() : 0;
  return std::max(digits, hasLine && lineAbove() ? lineBand() : 0);
}

double TextPlan::bandBelow() const {
  if (!shown) return 0;
  const double digits = hasDigits && !above ? digitsBand() : 0;
  return std::max(digits, hasLine && !lineAbove() ? lineBand() : 0);
}

TextPlan PlanText(const Symbol& symbol, const Options& options, double defaultPoints) {
  TextPlan plan;
  plan.shown = IsShown(symbol, options);
  if (!plan.shown) return plan;
  plan.above = options.textAbove;
  plan.font = FindFont(options.fontName);
  plan.size = (options.fontHeight > 0 ? options.fontHeight : defaultPoints) * kPoint;
  plan.distance = options.textDistance >= 0 ? options.textDistance : kDefaultDistance;
  for (const SymbolText& text : symbol.texts) {
    plan.ascent = std::max(plan.ascent, plan.font.ascentOf(text.text));
    plan.hasLine |= text.place == SymbolText::Place::kLine;
    plan.hasDigits |= text.place == SymbolText::Place::kBetweenGuards;
    plan.hasAddOn |= text.place == SymbolText::Place::kAboveAddOn;
    plan.modulesLeft = std::max(plan.modulesLeft, -text.from);
    plan.modulesRight = std::max(plan.modulesRight, text.to - symbol.width);
  }
  return plan;
}

}  // namespace Library
