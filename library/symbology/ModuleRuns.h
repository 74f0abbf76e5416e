#pragma once

#include "library/symbology/Symbol.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

// The runs of a row of modules, bar and space in turn, the first a bar (0 wide where the row begins
// light). 64 modules a word, the first in the lowest bit. REQUIRES: width > 0.
std::vector<int> ModuleRuns(const std::uint64_t* words, int width);

// Adds rows of square modules, dark where isDark(row, column). REQUIRES: width <= 192.
template <class IsDark>
void AddModules(Symbol& symbol, int width, int height, IsDark&& isDark) {
  symbol.width = width;
  symbol.rows.reserve(static_cast<std::size_t>(height));
  for (int row = 0; row < height; ++row) {
    std::array<std::uint64_t, 3> words;
    for (int first = 0; first < width; first += 64) {
      std::uint64_t word = 0;
      for (int column = std::min(first + 64, width) - 1; column >= first; --column) {
        word = word << 1 | std::uint64_t{isDark(row, column)};
      }
      words[static_cast<std::size_t>(first) / 64] = word;
    }
    SymbolRow& line = symbol.rows.emplace_back();
    line.runs = ModuleRuns(words.data(), width);
    line.height = 1;
  }
}

}  // namespace Library
