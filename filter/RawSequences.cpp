#include "filter/RawSequences.h"

#include "filter/Arguments.h"
#include "filter/PlacementCode.h"

#include <algorithm>

namespace Filter {

using Diag::Foreign;
using Diag::ResultCode;

void AppendInPlaceOf(std::string_view sequence, const Job& job, std::string& blanks) {
  if (job.application.barcode.remove != Settings::kBlankSequence) return;
  const std::size_t size = blanks.size();
  blanks.resize(size + sequence.size());
  const char lineEnd = job.lineEnd;
  std::transform(sequence.begin(), sequence.end(),
                 blanks.begin() + static_cast<std::ptrdiff_t>(size), [lineEnd](char byte) {
                   const bool stays = (byte == '\t') | (byte == '\n') | (byte == lineEnd);
                   return stays ? byte : ' ';
                 });
}

ResultCode RawSequences::handleEscapeSequence(std::uint64_t lineBegin) {
  const std::string& beginToken = job.application.escapeBegin;
  // The byte behind the begin token belongs neither to the options nor to the output.
  const std::size_t size = end.find(job, beginToken.size() + 1, job.application.escapeEnd);
  if (size == 0) return reportUnclosed();
  const std::uint64_t place = job.stream.position();
  std::string sequence(job.stream.peek(size).substr(0, size));
  sequence.erase(beginToken.size(), 1);
  job.log.Trace(Diag::kDebug, "----------------------------------------------------");
  job.log.Trace(Diag::kDebug, "New Bar Code");
  job.log.Trace(Diag::kDebug, "----------------------------------------------------");
  job.log.Trace(Diag::kDebug, "Barcode escape string (", beginToken, "...) found.");

  const std::size_t options =
      sequence.size() -
      std::min(sequence.size(), beginToken.size() + job.application.escapeEnd.size());
  std::string text = sequence.substr(beginToken.size(), options);
  if (job.isPostScript()) {
    job.log.Trace(Diag::kDebug, "Barcode escape string before argument decoding: ", Foreign{text});
    decodeArguments(text, job.log);
    job.log.Trace(Diag::kDebug, "Barcode escape string after argument decoding: ", Foreign{text});
  }
  const bool atText = job.isPostScript() && job.application.insertMode == Settings::kInsertAuto;
  const ResultCode result =
      atText ? maker.processForText(text, place) : maker.processSequence(text, place);
  if (!maker.insertsAfter(result)) text.clear();
  if (atText && !text.empty()) text = BlockAtCurrentPoint({{text, 0}});
  std::string blanks;
  AppendInPlaceOf(sequence, job, blanks);
  replace(size, blanks, text, lineBegin);
  return result;
}

// Puts blanks and what the sequence amounts to in its place, in the order of the insert mode.
void RawSequences::replace(std::size_t size, std::string_view blanks, std::string_view output,
                           std::uint64_t lineBegin) {
  const int mode = job.application.insertMode;
  if (mode == Settings::kInsertBeforeLine) job.stream.holdFrom(lineBegin);
  // Nothing can be put in front of the job's first line, or of one that has a barcode there.
  const bool lineIsOut = mode == Settings::kInsertBeforeLine && !job.stream.isHolding();
  const bool behind = mode == Settings::kInsertAfterString || lineIsOut;
  if (!behind && !output.empty()) placement.place(output, false);
  job.stream.consume(size);
  job.stream.putString(blanks);
  if (behind && !output.empty()) placement.place(output, false);
}

ResultCode RawSequences::reportUnclosed() {
  job.log.Trace(Diag::kWarning, "Begin of barcode escape sequence without valid end found!");
  job.noteBarcodeMissing(job.stream.position(), "has no end");
  job.stream.forward(std::min(job.application.escapeBegin.size(), job.stream.window().size()));
  return Diag::kUnclosedSequence;
}

}  // namespace Filter
