// Escape sequences among plain bytes: in PCL, or in PostScript outside of strings.
#pragma once

#include "diag/ResultCode.h"
#include "filter/BarcodeMaker.h"
#include "filter/Job.h"
#include "filter/Placement.h"
#include "filter/SequenceEnd.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Filter {

// What stands in place of a sequence that was taken out. Blank mode keeps the layout of the line: a
// blank for each byte, tabs and line ends as they are. Remove mode leaves nothing.
void AppendInPlaceOf(std::string_view sequence, const Job& job, std::string& blanks);

class RawSequences {
 public:
  RawSequences(Job& newJob, BarcodeMaker& newMaker, Placement& newPlacement)
      : job(newJob), maker(newMaker), placement(newPlacement) {}

  // Handles the begin token at the window's front. `lineBegin`: the place in the job where the line
  // began.
  Diag::ResultCode handleEscapeSequence(std::uint64_t lineBegin);

 private:
  void replace(std::size_t size, std::string_view blanks, std::string_view output,
               std::uint64_t lineBegin);
  Diag::ResultCode reportUnclosed();

  Job& job;
  BarcodeMaker& maker;
  Placement& placement;
  SequenceEnd end;
};

}  // namespace Filter
