// The modules of a Data Matrix symbol (ISO/IEC 16022): regions with their finders, and the check
// words and places of its words.
#pragma once

#include "library/symbology/Symbol.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Library {

struct DataMatrixShape {
  int height, width;  // modules
  int down, across;   // regions
  int dataWords;
  int checkWords;  // of all blocks
  int blocks;
};

// The sizes by number, from 1: 24 square ones, 6 rectangular ones in the order of their capacity.
std::span<const DataMatrixShape> DataMatrixShapes();
inline constexpr int kDataMatrixSquares = 24;

// REQUIRES: data.size() is the shape's dataWords.
void DrawDataMatrix(const DataMatrixShape& shape, std::vector<std::uint16_t> data, Symbol& symbol);

}  // namespace Library
