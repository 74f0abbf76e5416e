// Where finished barcodes go: in front of or behind the sequence, its string or its line, at once
// or, with an insert pattern, when that comes.
#pragma once

#include "filter/Job.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Filter {

class Placement {
 public:
  explicit Placement(Job& newJob);

  // Places what a sequence amounts to. The sequence's bytes have not been written yet, unless no
  // string follows and the mode is AFTERSTRING, or BEFORELINE without a held line. `stringFollows`:
  // the string that held the sequence is written afterwards, by stringWritten.
  void place(std::string_view output, bool stringFollows);
  // What may let a waiting barcode go: the end of a string or a line was written, the insert
  // pattern is next. Each writes what is next, too, if it is not only told of it. `lineBegin`: the
  // place in the job where the line began.
  void stringWritten();
  void lineEnded();
  void handleInsertPattern(std::uint64_t lineBegin);

  bool waits() const { return !pendingBarcode.empty(); }
  bool waitsForString() const { return waits() && insertArmed && mode() == kAfterString; }
  bool waitsForLineEnd() const {
    return holdsLine() || (waits() && insertArmed && mode() == kAfterLine);
  }
  bool waitsForPattern() const {
    return waits() && !insertArmed && !job.application.insertPattern.empty();
  }
  // At the end of the job: a waiting barcode is lost, which is said.
  void finish() const;

 private:
  static constexpr int kAfterString = Settings::kInsertAfterString;
  static constexpr int kAfterLine = Settings::kInsertAfterLine;
  static constexpr int kBeforeLine = Settings::kInsertBeforeLine;

  int mode() const { return job.application.insertMode; }
  // From a line's first sequence on, until a barcode is put in front of the line.
  bool holdsLine() const { return mode() == kBeforeLine && job.stream.isHolding(); }
  void writePending();
  void disarm();

  Job& job;
  // Finished output that waits for its insertion point.
  std::string pendingBarcode;
  // A waiting barcode may be written at the next insertion point.
  bool insertArmed;
};

}  // namespace Filter
