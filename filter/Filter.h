// The print-queue filter: copies a print job from a file or standard input to standard output and
// puts a barcode in place of each escape sequence in it. Every input byte is forwarded or consumed,
// exactly one of them, so a job without sequences leaves as it came.
//
//     Job                what the parts share
//     Stream             the job's bytes in and out
//     Language           PostScript, PCL or PDF: first bytes, PJL
//     PostScriptScanner  up to the next thing that matters in PostScript
//       BlockMasks         one bit for each byte that means something
//       EmbeddedData       pictures, fonts, counted sections
//       StringFinder       the string that a begin token stands in
//     PclScanner         the same for PCL
//       PclData            pictures, fonts, other languages
//     StringSequences    sequences in PostScript strings
//     AutoInsert         the same with insert=auto
//       ShowOperators      what operators do with a string
//       PenMovement        where a split sequence has blanks
//       PlacementCode      PostScript that finds where a text stands
//     RawSequences       sequences among plain bytes
//     OrvellaSequences   Orvella control sequences
//       SequenceEnd        where the last two end
//     BarcodeMaker       from a sequence's text to a barcode
//     Placement          a barcode's place in the documented insert modes
#pragma once

#include "diag/ResultCode.h"
#include "filter/AutoInsert.h"
#include "filter/BarcodeMaker.h"
#include "filter/Job.h"
#include "filter/OrvellaSequences.h"
#include "filter/PclScanner.h"
#include "filter/Placement.h"
#include "filter/PostScriptScanner.h"
#include "filter/RawSequences.h"
#include "filter/StringSequences.h"

#include <optional>

namespace Filter {

class Filter {
 public:
  // Works on the global settings, and changes their stream type and insert mode.
  Filter();
  virtual ~Filter() = default;

  // Filters the whole job. The first error met, after which filtering went on; kJobStreamFailed
  // when the job could not be read or written to its end; or, with nothing written,
  // kInvalidArgument for an input file that can't be opened and kNothingLeft for an empty job.
  // Called once.
  Diag::ResultCode run();

 private:
  using ResultCode = Diag::ResultCode;

  ResultCode detectLanguage();
  void filterJob();
  bool filterPostScript();
  bool filterPcl();
  ResultCode dispatch(Found found, std::uint64_t lineBegin);
  void handlePjl();
  void handleLineEnd();
  void enterPersonality(Settings::StreamType type);
  void copyWholeJob();
  ResultCode finish();
  void keepFirst(ResultCode result);

  Job job;
  BarcodeMaker maker;
  Placement placement;
  StringSequences strings;
  AutoInsert autoInsert;
  RawSequences raw;
  OrvellaSequences orvella;
  std::optional<PostScriptScanner> postScript;
  std::optional<PclScanner> pcl;
  bool pjlActive = false;
  bool isPdf = false;
  bool postScriptGiven = false;  // by the settings: no command ends it
  ResultCode firstResult = Diag::kSuccess;
};

}  // namespace Filter
