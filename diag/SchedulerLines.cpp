#include "diag/SchedulerLines.h"

#include "diag/Output.h"
#include "diag/Text.h"

#include <unistd.h>

#include <algorithm>

namespace Diag {
namespace {

// The scheduler cuts a line at 2,047 bytes, and what is behind has no word of its level.
constexpr std::size_t kLongestLine = 1900;
constexpr std::string_view kNoReason = "the barcode can't be made";

void Write(std::string_view tag, std::string_view name, std::string_view text) {
  const bool cut = text.size() > kLongestLine;
  WriteAll(STDERR_FILENO,
           Text(tag, name, ": ", text.substr(0, kLongestLine), cut ? "..." : "", '\n'));
}

std::string_view Tag(Level level) {
  switch (level) {
    case kWarning:
      return "WARNING: ";
    case kInformation:
      return "INFO: ";
    default:
      return "DEBUG: ";  // also the lines of an error
  }
}

// "on page 3, at byte 58 of the job." as "page 3"; without a page as "byte 58".
std::string_view Place(std::string_view note) {
  note.remove_prefix(kSequenceFailed.size());
  note.remove_prefix(std::min(note.find(' ') + 1, note.size()));
  const std::size_t number = note.find(' ') + 1;
  return note.substr(0, note.find_first_not_of("0123456789", number));
}

std::string_view WithoutEnd(std::string_view text, std::string_view ending) {
  const std::size_t last = text.find_last_not_of(ending);
  return text.substr(0, last == text.npos ? 0 : last + 1);
}

}  // namespace

void SchedulerLines::add(Level level, std::string_view newName, const Piece& piece) {
  name = newName;
  std::string_view text = piece.text;
  for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
    line.text += text.substr(0, end);
    line.withoutJob += WithoutEnd(piece.withoutJob, "\n");
    endLine(level, piece.note);
    text.remove_prefix(end + 1);
  }
  if (text.empty() && !piece.lineEnd) return;
  line.text += text;
  if (!text.empty()) line.withoutJob += piece.withoutJob;
  if (piece.lineEnd && !line.empty()) endLine(level, piece.note);
}

void SchedulerLines::endLine(Level level, bool note) {
  if (level != kError) {
    if (!line.empty()) Write(Tag(level), name, line.text);
  } else if (!note) {
    Write(Tag(level), name, line.text);
    takeError();
  } else if (line.text.starts_with(kSequenceFailed)) {
    report(Text(Place(line.text), ": ", why()));
  } else if (line.text.starts_with(kInFile)) {
    Write(Tag(level), name, line.text);
    const std::string_view place = std::string_view(line.text).substr(kInFile.size());
    better = Text(why(), ", in ", place.substr(0, place.find(" of ")), " of the settings file");
  } else if (line.text.starts_with(kBarcodeMissing) || reason.empty()) {
    report(line.text);
  } else {
    report(Text(line.text, " (", WithoutEnd(reason.text, " "), ')'));
  }
  line = {};
}

// The first line says it best, unless the library knows more.
void SchedulerLines::takeError() {
  if (const std::size_t found = line.text.find(kLibraryMessage); found != std::string::npos) {
    const std::string said(
        WithoutEnd(std::string_view(line.text).substr(found + kLibraryMessage.size()), "."));
    if (!reasonIsLibrarys && !said.starts_with(kNothingKnown)) reason = {said, said};
    reasonIsLibrarys = true;
  } else if (reason.empty()) {
    if (!line.text.starts_with(kSequence)) reason = line;
  } else if (reason.text.starts_with(kFile)) {
    const std::string both = Text(line.text, " (", reason.text, ')');
    reason = {both, both};
  }
}

std::string SchedulerLines::why() const {
  if (!better.empty()) return better;
  const std::string_view known = WithoutEnd(reason.withoutJob, " :");
  return std::string(known.empty() ? kNoReason : known);
}

void SchedulerLines::report(std::string_view text) {
  Write("ERROR: ", name, text);
  reason = {};
  reasonIsLibrarys = false;
  better.clear();
}

void SchedulerLines::finish() {
  if (!line.empty()) endLine(kDebug, false);
  if (!better.empty()) {
    report(std::string(better));
  } else if (!reason.empty()) {
    report(reason.text);
  }
}

}  // namespace Diag
