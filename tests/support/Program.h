// The program under test: run as the print spooler runs it.
#pragma once

#include "tests/support/Run.h"

#include <string>
#include <string_view>
#include <vector>

namespace Support {

using Lines = std::vector<std::string>;

// One run of the program, described by what differs from the ordinary.
struct Program {
  Lines settings;  // the lines of its ini file
  Environment environment{};
  bool standIn = false;        // with the recording library in place of the real one
  std::size_t inputChunk = 0;  // see Command
  bool inputFile = false;      // the job as a named file instead of standard input

  // The result of a run, with the library calls that the recording library saw.
  struct Result : Finished {
    Lines calls;
  };
  Result run(std::string_view input = {}) const;
};

// A run with the filter switched on.
Program Filter(Lines settings = {});
// A stand-alone run.
Program StandAlone(Lines settings);

Lines SplitLines(std::string_view text);
// The settings followed by more of them.
Lines Join(Lines settings, const Lines& more);

}  // namespace Support
