// How wide bars and spaces are printed: the nominal run lengths of a symbol, or those of a print
// ratio.
#pragma once

#include "library/symbology/Symbol.h"

#include <string_view>
#include <vector>

namespace Library {

// The numbers of a ratio "a:b:c:..", each greater than 0 and at most 1000; empty if the text is
// not of that form.
std::vector<double> ParseRatio(std::string_view text);

class ElementWidths {
 public:
  // Without a ratio a symbol of two widths has 1 : kDefaultWide, any other its nominal widths. A
  // symbol whose widths are no matter of ratios keeps them. Throws Error (BC_E_INVALIDARG) for a
  // ratio with a wrong count of numbers.
  ElementWidths(const Symbol& symbol, std::string_view ratio);

  // In X.
  double of(int modules, bool bar) const;
  double narrowBar() const { return of(1, true); }
  bool areNominal() const { return ratio.empty(); }
  // Modules of a wide element when all are 1 or `wide()` X, bars and spaces alike; 0: they are not.
  int wideModules() const;
  double wide() const { return of(nominalWide, true); }

 private:
  ElementRule rule;
  std::vector<double> ratio;
  int nominalWide = 2;  // modules of the wide element where there are two widths
};

// Where the modules of one row lie, in X from the left edge of the symbol.
class Columns {
 public:
  Columns(const SymbolRow& row, int symbolWidth, const ElementWidths& widths);

  struct Bar {
    int firstModule;
    double left, right;
  };
  const std::vector<Bar>& bars() const { return barList; }
  double width() const { return positions.back(); }
  // The position of the left edge of a module, also outside the symbol.
  double at(int module) const;

 private:
  // Edges of the runs: the module that begins there, and its place.
  std::vector<int> modules;
  std::vector<double> positions;
  std::vector<Bar> barList;
};

}  // namespace Library
