#include "filter/Placement.h"

namespace Filter {

Placement::Placement(Job& newJob)
    : job(newJob), insertArmed(newJob.application.insertPattern.empty()) {}

void Placement::place(std::string_view output, bool stringFollows) {
  switch (insertArmed ? mode() : kAfterLine) {
    case kAfterString:
      if (stringFollows) break;
      job.stream.putString(output);
      return disarm();
    case kAfterLine:
      break;
    default:  // in front of the line, the string or, in plain bytes, the sequence
      job.stream.putBeforeHeld(output);
      return disarm();
  }
  if (pendingBarcode.size() > kMostWaiting) {
    job.noteBarcodeMissing(job.stream.position(), "waits behind too many others");
    return;
  }
  pendingBarcode += output;
}

void Placement::stringWritten() {
  if (waitsForString()) writePending();
}

void Placement::lineEnded() {
  if (mode() == kBeforeLine)
    job.stream.endHold();
  else if (waitsForLineEnd())
    writePending();
}

void Placement::handleInsertPattern(std::uint64_t lineBegin) {
  switch (mode()) {
    case kBeforeLine:
      job.stream.holdFrom(lineBegin);
      job.stream.putBeforeHeld(pendingBarcode);
      break;
    case kAfterString:
      job.stream.forward(job.application.insertPattern.size());
      job.stream.putString(pendingBarcode);
      break;
    case kAfterLine:
      insertArmed = true;  // written at the next line end
      return;
    default:
      job.stream.putString(pendingBarcode);
      break;
  }
  pendingBarcode.clear();
}

void Placement::writePending() {
  job.stream.putString(pendingBarcode);
  pendingBarcode.clear();
  disarm();
}

// With an insert pattern, the next barcode waits for the pattern again.
void Placement::disarm() {
  if (!job.application.insertPattern.empty()) insertArmed = false;
}

void Placement::finish() const {
  if (!waits()) return;
  job.log.Trace(Diag::kWarning, "End of job reached before the insertion point of a barcode!");
  job.log.Note(Diag::kError, Diag::kBarcodeMissing, "its insertion point never came.");
}

}  // namespace Filter
