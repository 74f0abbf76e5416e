// Escape sequences in PostScript strings, with the documented insert modes. A sequence may be split
// over several strings, with operators, comments and line ends between them.
//
// A sequence is touched only once its end is known to be there: a begin token without an end leaves
// the job as it came.
#pragma once

#include "diag/ResultCode.h"
#include "filter/BarcodeMaker.h"
#include "filter/Job.h"
#include "filter/Placement.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace Filter {

class StringSequences {
 public:
  StringSequences(Job& newJob, BarcodeMaker& newMaker, Placement& newPlacement)
      : job(newJob), maker(newMaker), placement(newPlacement) {}

  // Handles the string of `size` bytes at the window's front, which holds a begin token, and what
  // belongs to it. `lineBegin`: the place in the job where the line of code began.
  Diag::ResultCode handlePostScriptString(std::size_t size, std::uint64_t lineBegin);

 private:
  // One string with its sequences on their way out of it.
  struct Opened {
    std::string token;  // as it stands in the job
    std::string bytes;
    bool changed = false;
    std::size_t from = 0;  // searched up to here
  };

  Opened open(std::size_t size);
  std::string closed(const Opened& string) const;
  void extract(Opened& string, std::size_t begin, std::size_t end);
  bool endFollows(std::size_t offset);
  void copyToEndString(Opened& string);
  std::size_t commentEnd(std::size_t offset);
  std::size_t stringSize(std::size_t offset);
  Diag::ResultCode insertBarcode(std::uint64_t place);

  Job& job;
  BarcodeMaker& maker;
  Placement& placement;
  // The contents of the sequence at hand, gathered across its strings.
  std::string sequenceText;
  // A begin token in front of this place in the job has no end; it was looked for.
  std::uint64_t noEndBefore = 0;
};

}  // namespace Filter
