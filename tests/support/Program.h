// The program under test: run as the print spooler runs it.
#pragma once

#include "tests/support/Run.h"

#include <string>
#include <string_view>
#include <vector>

namespace Support {

using Lines = std::vector<std::string>;

// What the recording library draws unless the environment says otherwise.
inline const std::string kDrawing = "DRAWING";

// One run of the program, described by what differs from the ordinary.
struct Program {
  Lines settings;        // the lines of its ini file
  bool standIn = false;  // with the recording library in place of the real one
  Environment environment{};
  std::size_t inputChunk = 0;  // see Command
  bool inputFile = false;      // the job as a named file instead of standard input
  bool slow = false;           // see Command
  std::string executable = VEXTORIN_PROGRAM;

  // The result of a run, with the library calls that the recording library saw.
  struct Result : Finished {
    Lines calls;
  };
  Result run(std::string_view input = {}) const;
};

// The parts of a text between separators; none of an empty text.
Lines Split(std::string_view text, std::string_view separator = "\n");
Lines Join(Lines settings, const Lines& more);
// The first of the texts that begins that way; empty when none does.
std::string FirstWith(const Lines& texts, std::string_view beginning);

// A stand-alone run, a run with the filter switched on; settings are parted by blanks.
Program StandAlone(std::string_view settings);
Program Filter(std::string_view settings = {});
// The same with the recording library.
Program Recorded(Program program, Environment answers = {});

}  // namespace Support
