#include "library/symbology/ModuleRuns.h"

#include <bit>
#include <cstddef>

namespace Library {

std::vector<int> ModuleRuns(const std::uint64_t* words, int width) {
  std::vector<int> runs;
  runs.reserve(static_cast<std::size_t>(width) / 2 + 2);
  int last = 0;
  std::uint64_t carry = 1;  // before the first all is dark
  for (int i = 0; i < width; i += 64) {
    const std::uint64_t word = *words++;
    // Ones where a module differs from the one before it.
    for (std::uint64_t changes = word ^ (word << 1 | carry); changes != 0; changes &= changes - 1) {
      const int place = i + std::countr_zero(changes);
      if (place >= width) break;
      runs.push_back(place - last);
      last = place;
    }
    carry = word >> 63;
  }
  runs.push_back(width - last);
  return runs;
}

}  // namespace Library
