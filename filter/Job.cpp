#include "filter/Job.h"

#include "diag/Text.h"

namespace Filter {

std::string Job::where(std::uint64_t place) const {
  return page == 0 ? Diag::Text("at byte ", place + 1)
                   : Diag::Text("on page ", page, ", at byte ", place + 1);
}

void Job::noteSequenceFailed(std::uint64_t place) const {
  log.Note(Diag::kError, Diag::kSequenceFailed, where(place), " of the job.");
}

void Job::noteBarcodeMissing(std::uint64_t place, const char* reason) const {
  log.Note(Diag::kError, Diag::kBarcodeMissing, "the sequence ", where(place), " of the job ",
           reason, ".");
}

}  // namespace Filter
