#include "library/symbology/Pdf417.h"

#include <bit>

namespace Library {

void AppendModules(std::uint32_t modules, int count, std::vector<int>& runs) {
  // A mark on the last module of each run.
  std::uint32_t ends = (modules ^ modules >> 1) & ((1u << (count - 1)) - 1);
  ends = ends << 1 | 1;
  int last = count;
  while (ends != 0) {
    const int at = std::bit_width(ends) - 1;
    runs.push_back(last - at);
    last = at;
    ends &= ~(1u << at);
  }
}

void AppendPdf417Word(int cluster, int word, std::vector<int>& runs) {
  AppendModules(0x10000u | std::uint32_t{kPdf417Patterns[cluster][word]} << 1, 17, runs);
}

}  // namespace Library
