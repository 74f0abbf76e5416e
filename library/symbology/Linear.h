// Building blocks of the encoders of one row of bars.
#pragma once

#include "library/symbology/Symbol.h"

#include <string>
#include <string_view>

namespace Library {

// Collects the runs of the one row of a linear symbol.
class LinearRow {
 public:
  // `widths`: one digit per element, "212222". A whole character, guard or gap between characters.
  void append(std::string_view widths);
  int width() const { return total; }
  void reserve(std::size_t elements) { runs.reserve(elements); }

  // Makes it the symbol's row.
  void finish(Symbol& symbol) &&;

 private:
  std::vector<int> runs, characters;
  int total = 0;
};

// `digits` in the places of the # signs of `mask`, the other characters of which stand for
// themselves.
std::string Masked(std::string_view digits, std::string_view mask);

// Text of ASCII data, with blanks for control characters.
std::string BlankedText(std::string_view data);

// One line of text over the whole symbol, for which the row must be finished; none when empty.
void SetTextLine(Symbol& symbol, std::string text);

}  // namespace Library
