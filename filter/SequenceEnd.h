// Where sequences among plain bytes end.
#pragma once

#include "filter/Job.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Filter {

class SequenceEnd {
 public:
  // The length of the sequence at the window's front, whose first `front` bytes belong to its
  // begin; 0 when no end follows, or not before the longest sequence ends or, in PCL, data begin.
  std::size_t find(Job& job, std::size_t front, std::string_view end);

 private:
  // What was searched is remembered, so that a job of nothing but begins costs no more than others:
  // from the last begin on no end stands in front of the one place, none counts in front of the
  // other.
  std::uint64_t noEndBefore = 0;
  std::uint64_t dataAt = 0;
};

}  // namespace Filter
