// From the text of a sequence to what is inserted in its place.
#pragma once

#include "diag/ResultCode.h"
#include "filter/Job.h"

#include <cstdint>
#include <string>

namespace Filter {

class BarcodeMaker {
 public:
  explicit BarcodeMaker(Job& newJob) : job(newJob) {}

  // Makes the barcode that the options in `text` describe and leaves in `text` what is to be
  // inserted: the wrapped barcode, nothing when the options are wrong, or the messages when
  // generation failed, in PostScript as a string that is shown. `place` is where the sequence
  // begins in the job.
  Diag::ResultCode processSequence(std::string& text, std::uint64_t place);

  // The same, with a barcode or messages that are drawn at the place which PlacementCode.h finds.
  Diag::ResultCode processForText(std::string& text, std::uint64_t place);

  // Whether what a failed sequence left is to be inserted.
  bool insertsAfter(Diag::ResultCode result) const;

 private:
  Diag::ResultCode make(std::string& text, std::uint64_t place, bool atText);

  Job& job;
};

}  // namespace Filter
