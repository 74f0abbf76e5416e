// Messages as the print scheduler wants them: each a whole line behind the word of its level, and
// of an error one line that says why, as that is all that users see of it:
//
//     DEBUG: vextorin: Couldn't create barcode. Please check barcode settings.
//     DEBUG: vextorin: Error code: 0x8007000d - Error Message: Invalid data ...
//     ERROR: vextorin: page 3: Invalid data ...
//
// The lines of an error are there for the scheduler's log, which shows those of failed jobs.
#pragma once

#include "diag/Level.h"

#include <string>
#include <string_view>

namespace Diag {

// Parts of messages by which these lines are told from others; those who write them take them here.
// The library's own words, behind a code, and those that say nothing.
inline constexpr std::string_view kLibraryMessage = " - Error Message: ";
inline constexpr std::string_view kNothingKnown = "Invalid argument.";
// The file that the next line is about.
inline constexpr std::string_view kFile = "IniFile: ";
// Quotes the sequence at hand, and says nothing of its error.
inline constexpr std::string_view kSequence = "Barcode Sequence: ";
// Notes about a sequence of the job, whose text is not for everybody's eyes: where it begins, where
// in its settings file the error is, and why a barcode is missing.
inline constexpr std::string_view kSequenceFailed = "The barcode sequence that failed begins ";
inline constexpr std::string_view kInFile = "What is wrong stands in ";
inline constexpr std::string_view kBarcodeMissing = "A barcode will be missing: ";

class SchedulerLines {
 public:
  // A piece of a message.
  struct Piece {
    std::string_view text;
    std::string_view withoutJob;  // without what it quotes of a print job
    bool lineEnd;
    bool note;  // says where the error happened that the lines before are about
  };
  void add(Level level, std::string_view name, const Piece& piece);
  // Why the error at hand, or the next one, happened: better than what its lines say.
  void setReason(std::string_view text) { better = text; }
  // Reports the error that no line was written of yet.
  void finish();

 private:
  struct Line {
    std::string text, withoutJob;
    bool empty() const { return text.empty(); }
  };
  void endLine(Level level, bool note);
  void takeError();
  std::string why() const;  // what is known of the error, without job text
  void report(std::string_view text);

  std::string name;
  Line line;    // not ended yet
  Line reason;  // of the error at hand
  bool reasonIsLibrarys = false;
  std::string better;  // empty: the reason has to do
};

}  // namespace Diag
