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

  // Places what a sequence amounts to. The sequence's bytes have not been written yet, unless the
  // mode is AFTERSTRING and no string follows. `stringFollows`: the string that held the sequence
  // is written afterwards, by stringWritten. `lineBegin`: the place in the job where the line
  // began.
  void place(std::string_view output, bool stringFollows, std::uint64_t lineBegin);
  // What may let a waiting barcode go: the end of a string or a line was written, the insert
  // pattern is next. Each writes what is next, too, if it is not only told of it.
  void stringWritten();
  void lineEnded();
  void handleInsertPattern(std::uint64_t lineBegin);

  bool waits() const { return !pendingBarcode.empty(); }
  bool waitsForString() const { return waits() && insertArmed && mode() == kAfterString; }
  bool waitsForLineEnd() const { return waits() && insertArmed && mode() == kAfterLine; }
  bool waitsForPattern() const {
    return waits() && !insertArmed && !job.application.insertPattern.empty();
  }
  // At the end of the job: a waiting barcode is lost, which is said.
  void finish() const;

 private:
  static constexpr int kAfterString = Settings::kInsertAfterString;
  static constexpr int kAfterLine = Settings::kInsertAfterLine;

  int mode() const { return job.application.insertMode; }
  void writePending();
  void disarm();

  Job& job;
  // Finished output that waits for its insertion point.
  std::string pendingBarcode;
  // A waiting barcode may be written at the next insertion point.
  bool insertArmed;
};

}  // namespace Filter
