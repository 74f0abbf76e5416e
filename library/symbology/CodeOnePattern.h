// The modules of a Code One symbol (AIM USS Code One), versions A to H.
#pragma once

#include "library/symbology/Symbol.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Library {

struct CodeOneVersion {
  int rows, columns;  // of words, of which each is two modules high and four wide
  std::size_t dataWords, checkWords, blocks;
  int bars, fullBars;  // across the middle, and those of them that are as wide as the symbol
  std::span<const int> above, below;  // columns of the upright bars above and below the middle
};

// From the smallest on.
std::span<const CodeOneVersion> CodeOneVersions();

// REQUIRES: data.size() is the version's dataWords.
void DrawCodeOne(const CodeOneVersion& version, std::vector<std::uint16_t> data, Symbol& symbol);

}  // namespace Library
