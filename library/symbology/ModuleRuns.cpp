#include "library/symbology/ModuleRuns.h"

#include <bit>
#include <cstddef>

namespace Library {
namespace {

// Ones where a module differs from the one before it; before the first all is dark.
class Changes {
 public:
  explicit Changes(const std::uint64_t* row) : next(row) {}
  std::uint64_t take() {
    const std::uint64_t word = *next++;
    const std::uint64_t changes = word ^ (word << 1 | carry);
    carry = word >> 63;
    return changes;
  }

 private:
  const std::uint64_t* next;
  std::uint64_t carry = 1;
};

}  // namespace

std::vector<int> ModuleRuns(const std::uint64_t* words, int width) {
  std::size_t count = 1;
  Changes counted(words);
  for (int i = 0; i < width; i += 64) {
    count += static_cast<std::size_t>(std::popcount(counted.take()));
  }

  std::vector<int> runs;
  runs.reserve(count);
  int last = 0;
  Changes changes(words);
  for (int i = 0; i < width; i += 64) {
    for (std::uint64_t left = changes.take(); left != 0; left &= left - 1) {
      const int place = i + std::countr_zero(left);
      if (place >= width) break;
      runs.push_back(place - last);
      last = place;
    }
  }
  runs.push_back(width - last);
  return runs;
}

}  // namespace Library
