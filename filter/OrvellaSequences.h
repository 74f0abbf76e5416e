// Orvella control sequences: a header that holds the parameters of the barcodes to come, and a body
// that holds the data of one, in whose place it is written.
#pragma once

#include "diag/ResultCode.h"
#include "filter/Job.h"
#include "filter/SequenceEnd.h"

#include <cstddef>
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
  Diag::ResultCode reportUnclosed(std::string_view message, std::size_t front);

  Job& job;
  // The last header, with the parameters of the bodies behind it; empty before the first.
  std::string orvellaHeader;
  // The body at hand and what stands in its place. Noise looks like bodies of many KiB, whose
  // memory is used again.
  std::string body;
  std::string blanks;
  SequenceEnd headerEnd, bodyEnd;
};

}  // namespace Filter
