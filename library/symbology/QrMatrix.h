// A matrix of modules of which each row is three words, for QR Code and its relatives: the widest
// has 177 modules.
#pragma once

#include "library/symbology/ModuleRuns.h"
#include "library/symbology/Symbol.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Library {

struct QrMatrix {
  static constexpr int kMaxWidth = 177;
  static constexpr std::size_t kRowWords = 3;
  using Row = std::array<std::uint64_t, kRowWords>;  // the first module in the lowest bit

  QrMatrix(int columns, int rowCount) : width(columns), height(rowCount) {}

  bool isDark(int x, int y) const { return (word(x, y) >> (x & 63) & 1) != 0; }
  void set(int x, int y, bool dark) {
    const std::uint64_t bit = std::uint64_t{1} << (x & 63);
    word(x, y) = dark ? word(x, y) | bit : word(x, y) & ~bit;
  }

  std::uint64_t& word(int x, int y) {
    return rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x) >> 6];
  }
  const std::uint64_t& word(int x, int y) const {
    return rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x) >> 6];
  }

  void copyTo(Symbol& symbol) const {
    symbol.width = width;
    symbol.rows.reserve(static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) symbol.rows.push_back({ModuleRuns(&word(0, y), width), 1});
  }

  int width, height;
  std::array<Row, kMaxWidth> rows{};  // light beyond width and height
};

// Modules that are drawn one by one, and which of them are.
struct QrCanvas {
  QrCanvas(int width, int height) : modules(width, height), drawn(width, height) {}

  void set(int x, int y, bool dark) {
    modules.set(x, y, dark);
    drawn.set(x, y, true);
  }

  // Squares round a centre, the one at distance n dark where bit n of `darkRings` is set. What lies
  // outside the symbol is left out.
  void drawRings(int centreX, int centreY, int reach, std::uint32_t darkRings);

  // Bits in the order of the standards: two columns at a time, upward and downward in turn from the
  // `right` column, through the modules that are not drawn. What is left stays light.
  void place(const std::vector<std::uint8_t>& bytes, int right, int skippedColumn);

  QrMatrix modules, drawn;
};

}  // namespace Library
