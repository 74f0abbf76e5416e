// Escape sequences in PostScript strings. A sequence may be split over several strings, with
// operators, comments and line ends between them.
//
// A string without a begin token, nearly every one, is neither copied nor changed. A sequence is
// touched only once its end is known to be there: a begin token without an end leaves the job as
// it came.
#include "diag/Assert.h"
#include "filter/Filter.h"
#include "filter/Limits.h"
#include "filter/PostScriptString.h"

#include <utility>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// Whether the bytes that the token stands for hold `text`. Most tokens show at a glance that they
// don't.
bool Holds(std::string_view token, std::string_view text) {
  const bool plain =
      FormOf(token) == StringForm::kLiteral && token.find('\\') == std::string_view::npos;
  if (plain && token.find(text) == kNone) return false;
  return DecodeString(token).find(text) != kNone;
}

}  // namespace

Diag::ResultCode Filter::handlePostScriptString() {
  if (passSimpleString()) return Diag::kSuccess;
  const std::string_view found = readPostScriptString(0);
  if (found.empty() || !Holds(found, application.escapeBegin)) {
    passStringWithoutSequence(found.empty() ? stream.window().size() : found.size());
    return Diag::kSuccess;
  }
  const std::size_t size = found.size();
  std::string token(found);
  Progress progress;
  decodeAndExtract(token, progress);
  if (!progress.ended && !endFollows(size)) {
    sequenceText.clear();
    return reportUnclosedSequence();
  }
  if (application.insertMode == Settings::kInsertBeforeString && insertArmed) stream.beginHold();
  stream.consume(size);
  if (!progress.ended) {
    stream.putString(token);
    copyToEndString(token, progress);
  }
  // The main loop writes the last string, and finds a further sequence in it.
  stream.ungetString(token);
  std::string sequence = std::exchange(sequenceText, {});
  return insertBarcode(sequence, true);
}

// Passes a literal string that lies in the window and holds no parenthesis, no escape and not even
// the begin token's first byte: one search settles nearly every string of a job.
bool Filter::passSimpleString() {
  const std::string_view window = stream.window();
  if (window.front() != '(') return false;
  const std::size_t stop = 1 + simpleStringStops.find(window.substr(1));
  if (stop == window.size() || window[stop] != ')') return false;
  passStringWithoutSequence(stop + 1);
  return true;
}

// The whole token at `offset` in the window, which is extended as far as that takes; the job's end
// ends it. Empty when it is longer than any string.
std::string_view Filter::readPostScriptString(std::size_t offset) {
  const std::string_view opener = stream.peek(offset + 1).substr(offset);
  Diag::AssertToLog(log, opener.starts_with('(') || opener.starts_with('<'), "Filter", 538,
                    "Unknown begin of PostScript string!");
  StringScanner scanner(application.lineByLine);
  while (true) {
    const std::string_view text = stream.window().substr(offset);
    const std::size_t size = scanner.scan(text);
    if (size != kNone) return text.substr(0, size);
    if (text.size() > kLongestString) return {};
    if (!stream.extend()) return text;
  }
}

void Filter::passStringWithoutSequence(std::size_t size) {
  stream.forward(size);
  if (application.insertMode == Settings::kInsertAfterString && insertArmed) writePending();
}

// Takes the part of a sequence that one string holds out of it: appends the part to sequenceText
// and blanks or removes it in `token`, which keeps its form.
void Filter::decodeAndExtract(std::string& token, Progress& progress) {
  std::string bytes = DecodeString(token);
  const std::size_t begin = bytes.find(application.escapeBegin);
  if (!progress.begun && begin == kNone) return;
  log.Trace(Diag::kDebug, "Converted \"", token, "\" to \"", bytes, "\"");

  const std::size_t from = progress.begun ? 0 : begin;
  const std::size_t optionsFrom = progress.begun ? 0 : begin + application.escapeBegin.size();
  const std::size_t end = bytes.find(application.escapeEnd, from);
  const std::size_t optionsTo = std::min(end, bytes.size());
  const std::size_t to =
      end == kNone ? bytes.size() : std::min(end + application.escapeEnd.size(), bytes.size());
  if (optionsTo > optionsFrom) {
    sequenceText.append(bytes, optionsFrom, optionsTo - optionsFrom);
  }
  const bool blank = application.barcode.remove == Settings::kBlankSequence;
  bytes.replace(from, to - from, blank ? to - from : 0, ' ');
  token = EncodeLike(token, bytes);

  if (begin != kNone) progress.begun = true;
  if (end != kNone) progress.ended = true;
  // A sequence that is broken over several strings reads as options with blanks between them.
  if (!progress.ended) sequenceText += ' ';
}

// Whether one of the strings behind `offset` in the window holds the end token. When none does,
// the bytes that are known to hold no end are written unchanged.
bool Filter::endFollows(std::size_t offset) {
  static const ByteSet kStops("%(<");
  const std::size_t tokenSize = offset;
  while (!endIsMissing && offset < kLongestSequence) {
    const std::string_view window = stream.peek(offset + 2);
    if (window.size() <= offset) {
      endIsMissing = true;
      break;
    }
    const std::size_t stop = offset + kStops.find(window.substr(offset));
    if (stop > offset) {
      offset = stop;
    } else if (window[offset] == '%') {
      offset = commentEnd(offset);
    } else if (window.substr(offset).starts_with("<<")) {
      offset += 2;
    } else {
      const std::string_view token = readPostScriptString(offset);
      if (token.empty()) break;
      if (Holds(token, application.escapeEnd)) return true;
      offset += token.size();
    }
  }
  // A job full of begin tokens must not be searched once for each of them.
  stream.forward(endIsMissing ? tokenSize : std::min(offset, stream.window().size()));
  return false;
}

// The index behind the comment at `offset` in the window, at most that of the window's end.
std::size_t Filter::commentEnd(std::size_t offset) {
  while (offset < kLongestSequence) {
    const std::string_view window = stream.peek(offset + 1);
    const std::size_t lineFeed = window.find('\n', offset);
    if (lineFeed != kNone) return lineFeed;
    offset = window.size();
    if (stream.peek(offset + 1).size() == offset) break;
  }
  return offset;
}

// Writes the job up to the string that holds the end token, which is left in `token`.
// REQUIRES: endFollows
void Filter::copyToEndString(std::string& token, Progress& progress) {
  static const ByteSet kStops("%(<\n");
  while (!progress.ended) {
    const std::string_view window = stream.peek(2);
    const std::size_t plain = kStops.find(window);
    if (plain > 0) {
      stream.forward(plain);
    } else if (window.front() == '%') {
      copyComment();
    } else if (window.front() == '\n') {
      handleLineFeed();
    } else if (window.starts_with("<<")) {
      stream.forward(2);
    } else {
      token = readPostScriptString(0);
      stream.consume(token.size());
      decodeAndExtract(token, progress);
      if (!progress.ended) stream.putString(token);
    }
  }
}

Diag::ResultCode Filter::reportUnclosedSequence() {
  log.Trace(Diag::kWarning, "Begin of barcode escape sequence without valid end found!");
  return Diag::kUnclosedSequence;
}

}  // namespace Filter
