// One symbol encoded by libzint. It takes nothing unchecked: it writes past its arrays for some
// data, draws another symbology than it was asked for, and changes options silently; callers
// limit lengths and options to what is known to be good before they encode.
#pragma once

#include "engine/library/vextorin9.h"
#include "library/prepare/PreparedData.h"
#include "library/symbology/Symbol.h"
#include "library/symbology/ZintLibrary.h"

#include <string_view>

namespace Library {

class ZintSymbol {
 public:
  explicit ZintSymbol(int symbology);  // libzint's number; bytes are encoded as they are
  ~ZintSymbol() { Zint().destroy(symbol); }
  ZintSymbol(const ZintSymbol&) = delete;
  ZintSymbol& operator=(const ZintSymbol&) = delete;

  zint_symbol* operator->() { return symbol; }
  const zint_symbol* operator->() const { return symbol; }

  // Throws Error; `overridden` is its code when libzint did not keep to an option.
  // REQUIRES: data is not empty.
  void encode(std::string_view data, BCResult overridden = BC_E_INVALIDARG);

  // As encode, but false for data that are too long.
  bool tryEncode(std::string_view data, BCResult overridden = BC_E_INVALIDARG);

  bool isDark(int row, int column) const {
    return ((symbol->encoded_data[row][column >> 3] >> (column & 7)) & 1) != 0;
  }

  // Of a row, as SymbolRow has them.
  std::vector<int> runs(int row) const;

  // Adds all rows as runs, each `rowHeight` X high.
  void copyRows(Symbol& target, double rowHeight) const;

 private:
  zint_symbol* symbol;
};

// Sets the number of symbols of a structured append and the place of this one, from 1. Throws Error
// with BC_E_INVALIDARG unless 2 <= sum <= maxSum and 1 <= index <= sum.
void SetAppend(ZintSymbol& symbol, int sum, int index, int maxSum);

// Element strings as parsed, in the form that libzint takes unchecked.
std::string UncheckedElements(const Data& data);

}  // namespace Library
