// PostScript level 2. With overhead: an EPS file that also prints as a job of its own; without: the
// drawing operators alone, which leave stacks, dictionaries and graphics state as they were.
//
// Text data appears as hex strings only, and the rest is made of fixed words and numbers, so no
// data can become code. Bars are put on whole device dots when they are printed; see
// PostScriptBars.h.
#pragma once

#include "library/writer/Writer.h"

namespace Library {

class PostScriptWriter : public Writer {
 public:
  explicit PostScriptWriter(bool withOverhead) : overhead(withOverhead) {}
  std::string write(const Drawing& drawing) const override;

 private:
  bool overhead;
};

}  // namespace Library
