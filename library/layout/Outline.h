// What lies round the rows of a symbol (quiet zone, digits outside the bars, bearer bars, text) as
// functions of the module width, all in thousandths of a millimetre.
#pragma once

#include "library/Options.h"
#include "library/layout/TextPlan.h"
#include "library/symbology/Symbol.h"

namespace Library {

class Outline {
 public:
  // Throws Error with BC_E_INVALIDARG for a print ratio that does not suit the symbol.
  Outline(const Symbol& symbol, const Options& settings, const TextPlan& textPlan);

  const TextPlan& text() const { return plan; }
  void setTextSize(double size) { plan.size = size; }
  double modules() const { return columns; }  // width of the bars in X
  double width(double x) const { return left(x) + columns * x + right(x); }
  double left(double x) const { return side(options.quietZone.left, plan.modulesLeft, x); }
  double right(double x) const { return side(options.quietZone.right, plan.modulesRight, x); }
  double above(double x) const;
  double below(double x) const;
  double bearer(double x) const;  // thickness, 0: the symbol has none
  double guardDrop(double x) const;
  int bearerType() const { return type; }

 private:
  double side(double quietZone, int textModules, double x) const;
  double quiet(double value, double dpi, double x) const;
  double onDots(double length) const;
  double widening(double x) const;

  const Options& options;
  TextPlan plan;
  double columns = 0;
  double topBar;  // X, that belongs to the symbol
  int type;       // of bearer bars, 0: none
  bool guards;
  bool matrix;
};

// Sides of the symbol on which a bearer bar type draws.
bool HasBearerAbove(int type);
bool HasBearerBelow(int type);
bool HasBearerFrame(int type);

}  // namespace Library
