#include "filter/StringSequences.h"

#include "filter/Limits.h"
#include "filter/PostScriptString.h"

#include <algorithm>
#include <utility>

namespace Filter {

using Diag::Foreign;
using Diag::ResultCode;

namespace {

constexpr std::size_t kNone = std::string_view::npos;

}  // namespace

ResultCode StringSequences::handlePostScriptString(std::size_t size, std::uint64_t lineBegin) {
  const std::string& beginToken = job.application.escapeBegin;
  const std::string& endToken = job.application.escapeEnd;
  ResultCode result = Diag::kSuccess;
  std::uint64_t place = job.stream.position();
  if (job.application.insertMode == Settings::kInsertBeforeLine) job.stream.holdFrom(lineBegin);
  Opened string = open(size);
  for (std::size_t begin; (begin = string.bytes.find(beginToken, string.from)) != kNone;) {
    const std::size_t end = string.bytes.find(endToken, begin);
    if (end != kNone) {
      extract(string, begin, std::min(end + endToken.size(), string.bytes.size()));
    } else if (endFollows(size)) {
      if (job.application.insertMode == Settings::kInsertBeforeString) job.stream.beginHold();
      extract(string, begin, kNone);
      job.stream.consume(size);
      job.stream.putString(closed(string));
      copyToEndString(string);
      size = 0;  // of what still stands in the stream
    } else {
      job.log.Trace(Diag::kWarning, "Begin of barcode escape sequence without valid end found!");
      job.noteBarcodeMissing(place, "has no end");
      if (result == Diag::kSuccess) result = Diag::kUnclosedSequence;
      break;
    }
    const ResultCode inserted = insertBarcode(place);
    if (result == Diag::kSuccess) result = inserted;
    place = job.stream.position();
  }
  // A held line stays so: its barcode may be the next one, or wait for the insert pattern.
  if (job.application.insertMode != Settings::kInsertBeforeLine) job.stream.endHold();
  if (size > 0 && !string.changed) {
    job.stream.forward(size);
  } else {
    job.stream.consume(size);
    job.stream.putString(closed(string));
  }
  placement.stringWritten();
  return result;
}

StringSequences::Opened StringSequences::open(std::size_t size) {
  Opened string;
  string.token = job.stream.peek(size).substr(0, size);
  string.bytes = DecodeString(string.token);
  return string;
}

std::string StringSequences::closed(const Opened& string) const {
  return string.changed ? EncodeLike(string.token, string.bytes) : string.token;
}

// Takes the bytes from the begin token up to `end`, kNone for the rest of the string, out of it:
// their options go to sequenceText.
void StringSequences::extract(Opened& string, std::size_t begin, std::size_t end) {
  const std::string& beginToken = job.application.escapeBegin;
  const std::string& endToken = job.application.escapeEnd;
  const bool continues = !sequenceText.empty();
  if (!string.changed) {
    job.log.Trace(Diag::kDebug, "Converted \"", Foreign{string.token}, "\" to \"",
                  Foreign{string.bytes}, "\"");
  }
  const std::size_t to = std::min(end, string.bytes.size());
  const std::size_t optionsFrom = continues ? begin : begin + beginToken.size();
  const std::size_t optionsTo = end == kNone ? to : to - endToken.size();
  if (optionsTo > optionsFrom)
    sequenceText.append(string.bytes, optionsFrom, optionsTo - optionsFrom);
  // A sequence that is broken over several strings reads as options with blanks between them.
  if (end == kNone) sequenceText += ' ';
  const bool blank = job.application.barcode.remove == Settings::kBlankSequence;
  string.bytes.replace(begin, to - begin, blank ? to - begin : 0, ' ');
  string.from = blank ? to : begin;
  string.changed = true;
}

ResultCode StringSequences::insertBarcode(std::uint64_t place) {
  std::string output = std::exchange(sequenceText, {});
  const ResultCode result = maker.processSequence(output, place);
  if (maker.insertsAfter(result)) placement.place(output, true);
  return result;
}

// ---------------------------------------------------------------- sequences over several strings

// The length of the string at an offset in the window; 0 for none, kNone for one that is too long.
std::size_t StringSequences::stringSize(std::size_t offset) {
  StringScanner scanner(job.application.lineByLine ? job.lineEnd : '\0');
  while (true) {
    const std::string_view string = job.stream.peek(offset + 2).substr(offset);
    const std::size_t size = scanner.scan(string);
    if (size == StringScanner::kNoString) return 0;
    if (size != kNone) return size <= kLongestString ? size : kNone;
    if (string.size() > kLongestString) return kNone;
    const std::size_t rest = string.starts_with('(') ? string.size() : 0;
    if (!job.stream.extend()) return rest;
  }
}

// The offset of the line end behind the comment at `offset`, at most the window's end.
std::size_t StringSequences::commentEnd(std::size_t offset) {
  while (true) {
    const std::string_view window = job.stream.peek(offset + 1);
    const std::size_t lineEnd = window.find_first_of("\r\n", offset);
    if (lineEnd != kNone) return lineEnd;
    offset = window.size();
    if (offset > kLongestSequence || !job.stream.extend()) return offset;
  }
}

// Whether one of the strings behind `offset` in the window holds the end token. All bytes up to it
// are in the window then.
bool StringSequences::endFollows(std::size_t offset) {
  // A job full of begin tokens must not be searched once for each of them.
  const std::uint64_t place = job.stream.position();
  if (noEndBefore > place) offset = std::max(offset, static_cast<std::size_t>(noEndBefore - place));
  while (offset < kLongestSequence) {
    const std::string_view window = job.stream.peek(offset + 2);
    if (window.size() <= offset) break;
    const std::size_t stop = std::min(window.find_first_of("%(<", offset), window.size());
    if (stop > offset) {
      offset = stop;
    } else if (window[offset] == '%') {
      offset = commentEnd(offset);
    } else if (window.substr(offset).starts_with("<<")) {
      offset += 2;
    } else if (const std::size_t size = stringSize(offset); size == kNone) {
      // Its parentheses are not tried one by one: each could go on for as long.
      offset += kLongestString;
    } else if (size > 0) {
      const std::string bytes = DecodeString(job.stream.peek(0).substr(offset, size));
      if (bytes.find(job.application.escapeEnd) != std::string::npos) return true;
      offset += size;
    } else {
      ++offset;
    }
  }
  noEndBefore = place + offset;
  return false;
}

// Writes the job up to the string that holds the end token, which is left open behind that.
// REQUIRES: endFollows
void StringSequences::copyToEndString(Opened& string) {
  while (true) {
    const std::string_view window = job.stream.peek(2);
    const std::size_t plain =
        std::min(window.find_first_of(job.lineEnd == '\r' ? "%(<\r" : "%(<\n"), window.size());
    if (plain > 0) {
      job.stream.forward(plain);
    } else if (window.front() == '%') {
      job.stream.forward(commentEnd(0));
    } else if (window.front() == job.lineEnd) {
      job.stream.forward(1);
      placement.lineEnded();
      if (job.application.insertMode == Settings::kInsertBeforeLine) job.stream.beginHold();
    } else if (const std::size_t size = window.starts_with("<<") ? 0 : stringSize(0); size > 0) {
      string = open(size);
      const std::size_t end = string.bytes.find(job.application.escapeEnd);
      extract(string, 0, end == kNone ? kNone : end + job.application.escapeEnd.size());
      job.stream.consume(size);
      if (end != kNone) return;
      job.stream.putString(closed(string));
    } else {
      job.stream.forward(window.starts_with("<<") ? 2 : 1);
    }
  }
}

}  // namespace Filter
