// Escape sequences among plain bytes, and the pattern at which a waiting barcode is inserted.
#include "filter/Arguments.h"
#include "filter/Filter.h"
#include "filter/Limits.h"

#include <algorithm>

namespace Filter {

Diag::ResultCode Filter::handleEscapeSequence() {
  if (!lookingAt(application.escapeBegin)) {
    stream.forward(1);
    return Diag::kSuccess;
  }
  std::string sequence = application.escapeBegin;
  stream.consume(sequence.size());
  // The byte behind the begin token belongs neither to the options nor to the output.
  const int separator = stream.get();
  if (application.insertMode == Settings::kInsertBeforeString) stream.beginHold();
  log.Trace(Diag::kDebug, "----------------------------------------------------");
  log.Trace(Diag::kDebug, "New Bar Code");
  log.Trace(Diag::kDebug, "----------------------------------------------------");
  log.Trace(Diag::kDebug, "Barcode escape string (", application.escapeBegin, "...) found.");

  if (!readToEndToken(sequence)) {
    if (separator != Stream::kEndOfInput) {
      sequence.insert(application.escapeBegin.size(), 1, static_cast<char>(separator));
    }
    stream.putString(sequence);
    return reportUnclosedSequence();
  }
  writeInPlaceOf(sequence);
  const std::size_t tokens = application.escapeBegin.size() + application.escapeEnd.size();
  const std::size_t options = sequence.size() - std::min(tokens, sequence.size());
  sequence = sequence.substr(application.escapeBegin.size(), options);
  if (application.streamType == Settings::kStreamPostScript) {
    log.Trace(Diag::kDebug, "Barcode escape string before argument decoding: ", sequence);
    decodeArguments(sequence, log);
    log.Trace(Diag::kDebug, "Barcode escape string after argument decoding: ", sequence);
  }
  return insertBarcode(sequence, false);
}

// Appends bytes to `sequence` until it ends with the end token. False at the end of the job, or
// when the sequence is longer than any real one.
bool Filter::readToEndToken(std::string& sequence) {
  while (!sequence.ends_with(application.escapeEnd)) {
    const int byte = stream.get();
    if (byte == Stream::kEndOfInput || sequence.size() >= kLongestSequence) {
      stream.unget(byte);
      return false;
    }
    sequence += static_cast<char>(byte);
  }
  return true;
}

// Blank mode keeps the layout of the line: a blank for each byte, tabs and line feeds as they are.
// Remove mode writes nothing.
void Filter::writeInPlaceOf(std::string_view sequence) {
  if (application.barcode.remove != Settings::kBlankSequence) return;
  std::string blanks(sequence);
  for (char& byte : blanks) {
    if (byte != '\t' && byte != '\n') byte = ' ';
  }
  stream.putString(blanks);
}

// Called with the pattern's first byte next while a barcode waits for the pattern.
void Filter::handleInsertPattern() {
  const std::string& pattern = application.insertPattern;
  if (!lookingAt(pattern)) {
    stream.forward(1);
    return;
  }
  switch (application.insertMode) {
    case Settings::kInsertBeforeLine:
      stream.putBeforeHeld(pendingBarcode);
      break;
    case Settings::kInsertAfterString:
      stream.forward(pattern.size());
      stream.putString(pendingBarcode);
      break;
    case Settings::kInsertAfterLine:
      insertArmed = true;  // written at the next line feed
      return;
    default:
      stream.putString(pendingBarcode);
      break;
  }
  pendingBarcode.clear();
}

}  // namespace Filter
