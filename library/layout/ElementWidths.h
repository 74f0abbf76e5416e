// How wide bars and spaces are printed: the nominal run lengths of a symbol, or those of a print
// ratio.
#pragma once

#include "library/symbology/Symbol.h"

#include <algorithm>
#include <array>
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
  double of(int modules, bool bar) const { return areNominal() ? modules : byRatio(modules, bar); }
  double narrowBar() const { return of(1, true); }
  bool areNominal() const { return numbers == 0; }
  // Modules of a wide element when all are 1 or `wide()` X, bars and spaces alike; 0: they are not.
  int wideModules() const;
  double wide() const { return of(nominalWide, true); }

 private:
  double byRatio(int modules, bool bar) const;

  ElementRule rule;
  std::size_t numbers = 0;  // of the ratio
  std::array<double, 8> ratio = {};
  int nominalWide = 2;  // modules of the wide element where there are two widths
};

// Where the modules of one row lie, in X from the left edge of the symbol.
class Columns {
 public:
  // The row is the caller's.
  Columns(const SymbolRow& symbolRow, int symbolWidth, const ElementWidths& elementWidths)
      : row(symbolRow), modules(symbolWidth), widths(elementWidths) {}

  struct Bar {
    int firstModule;
    double left, right;
  };
  // Calls draw(bar) from left to right.
  template <class Draw>
  void forEachBar(Draw&& draw) const {
    int module = 0;
    double position = 0;
    bool dark = true;
    for (const int run : row.runs) {
      const double next = position + widths.of(run, dark);
      if (dark && run > 0) draw(Bar{module, position, next});
      module += run;
      position = next;
      dark = !dark;
    }
  }
  double width() const;
  // The position of the left edge of a module, also outside the symbol.
  double at(int module) const;

 private:
  const SymbolRow& row;
  int modules;
  ElementWidths widths;
};

}  // namespace Library
