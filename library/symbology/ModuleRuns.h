#pragma once

#include <cstdint>
#include <vector>

namespace Library {

// The runs of a row of modules, bar and space in turn, the first a bar (0 wide where the row begins
// light). 64 modules a word, the first in the lowest bit. REQUIRES: width > 0.
std::vector<int> ModuleRuns(const std::uint64_t* words, int width);

}  // namespace Library
