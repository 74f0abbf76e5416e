// The print-queue filter: copies a print job from a file or standard input to standard output and
// puts a barcode in place of each escape sequence in it.
//
// The job is read as a stream of tokens. In PostScript a token is a comment, a string, "<<", a
// possible begin token, or plain bytes; in PCL only possible begin tokens and PJL commands stand
// out. Every input byte is forwarded, held or consumed, exactly one of them, so a job without
// sequences leaves as it came.
//
//     Filter.cpp           main loop
//     Language.cpp         PostScript or PCL: first line, PJL
//     RawSequences.cpp     sequences among plain bytes, insert pattern
//     StringSequences.cpp  sequences in PostScript strings, whole or split
//     Orvella.cpp          Orvella control sequences
//     Placement.cpp        sequence text to barcode, and the barcode to its place
#pragma once

#include "diag/ResultCode.h"
#include "diag/TraceLog.h"
#include "filter/ByteSet.h"
#include "filter/Stream.h"
#include "settings/AppSettings.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Filter {

class Filter {
 public:
  // Works on the global settings, and changes their stream type and insert mode.
  Filter();
  virtual ~Filter() = default;

  // Filters the whole job. The first error met, after which filtering went on; or, with nothing
  // written, kInvalidArgument for an input file that can't be opened and kNothingLeft for an empty
  // job. Called once.
  Diag::ResultCode run();

 private:
  using ResultCode = Diag::ResultCode;

  // Main loop
  void filterJob();
  ResultCode dispatch();
  const ByteSet& interestingBytes();
  void handleLineFeed();
  void copyComment();
  void keepFirst(ResultCode result);
  bool lookingAt(std::string_view text);

  // Printer language
  ResultCode detectLanguage();
  void enterPersonality(Settings::StreamType type, std::string_view name);
  void handlePjl();
  bool passWord(std::string_view word);
  void skipWhitespace();

  // Sequences among plain bytes
  ResultCode handleEscapeSequence();
  bool readToEndToken(std::string& sequence);
  void writeInPlaceOf(std::string_view sequence);
  void handleInsertPattern();

  // Sequences in PostScript strings
  struct Progress {
    bool begun = false;
    bool ended = false;
  };
  ResultCode handlePostScriptString();
  bool passSimpleString();
  std::string_view readPostScriptString(std::size_t offset);
  void passStringWithoutSequence(std::size_t size);
  void decodeAndExtract(std::string& token, Progress& progress);
  bool endFollows(std::size_t offset);
  std::size_t commentEnd(std::size_t offset);
  void copyToEndString(std::string& token, Progress& progress);
  ResultCode reportUnclosedSequence();

  // Orvella control sequences
  ResultCode handleOrvellaSequence();
  ResultCode handleOrvellaHeader();
  ResultCode handleOrvellaBody();
  bool readOrvellaSequence(std::string& sequence, std::size_t front, std::string_view end);

  // Barcodes
  ResultCode processSequence(std::string& text);
  ResultCode insertBarcode(std::string& sequence, bool stringFollows);
  void place(std::string_view output, bool stringFollows);
  void writePending();
  void disarm();
  bool awaitsPattern() const;

  Settings::AppSettings& application;
  Diag::TraceLog& log;

  Stream stream;
  // The contents of a sequence gathered across one or more strings; empty between sequences.
  std::string sequenceText;
  // Finished output that waits for its insertion point.
  std::string pendingBarcode;
  // The last header, with the parameters of the bodies behind it; empty before the first.
  std::string orvellaHeader;
  // A waiting barcode may be written at the next insertion point.
  bool insertArmed;
  bool pjlActive = false;
  // The rest of the job was searched: no string holds an end token.
  bool endIsMissing = false;
  ResultCode firstResult = Diag::kSuccess;

  // The bytes that end a plain run, and the state that they were chosen for.
  ByteSet interesting;
  unsigned interestingState = ~0U;
  // What keeps a literal string from being passed at a glance, and its end.
  ByteSet simpleStringStops;
};

}  // namespace Filter
