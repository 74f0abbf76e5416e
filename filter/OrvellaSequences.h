// Orvella control sequences: a header that holds the parameters of the barcodes to come, and a body
// that holds the data of one, in whose place it is written.
#pragma once

#include "diag/ResultCode.h"
#include "filter/Job.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Filter {

class OrvellaSequences {
 public:
  explicit OrvellaSequences(Job& newJob) : job(newJob) {}

  // Handles the control byte at the window's front.
  Diag::ResultCode handleOrvellaSequence();

 private:
  Diag::ResultCode handleHeader();
  Diag::ResultCode handleBody();
  void blankBody();
  std::size_t sizeToEnd(std::size_t front, std::string_view end, std::uint64_t& missingBefore);
  Diag::ResultCode reportUnclosed(std::string_view message, std::size_t front);

  Job& job;
  // The last header, with the parameters of the bodies behind it; empty before the first.
  std::string orvellaHeader;
  // The body at hand and what stands in its place. Noise looks like bodies of many KiB, whose
  // memory is used again.
  std::string body;
  std::string blanks;
  // No header, no body ends in front of this place in the job; it was looked for.
  std::uint64_t noHeaderEndBefore = 0;
  std::uint64_t noBodyEndBefore = 0;
};

}  // namespace Filter
