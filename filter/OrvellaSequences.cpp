#include "filter/OrvellaSequences.h"

#include "engine/GenerateWithSettings.h"
#include "filter/OrvellaParameters.h"
#include "filter/RawSequences.h"

#include <algorithm>

namespace Filter {

using Diag::ResultCode;

ResultCode OrvellaSequences::handleOrvellaSequence() {
  const std::string_view next = job.stream.peek(kOrvellaMarker.size());
  if (next.starts_with(kOrvellaHeaderBegin)) return handleHeader();
  if (next.starts_with(kOrvellaMarker)) return handleBody();
  job.stream.forward(1);
  return Diag::kSuccess;
}

ResultCode OrvellaSequences::handleHeader() {
  job.log.Trace(Diag::kInformation, "Orvella Header Sequence found.");
  const std::size_t front = kOrvellaHeaderBegin.size();
  const std::size_t size = headerEnd.find(job, front, kOrvellaHeaderEnd);
  if (size == 0) {
    return reportUnclosed("Begin of Orvella control sequence (header) without valid end found!",
                          front);
  }
  orvellaHeader = job.stream.peek(size).substr(0, size);
  blanks.clear();
  AppendInPlaceOf(orvellaHeader, job, blanks);
  job.stream.consume(size);
  job.stream.putString(blanks);
  return Diag::kSuccess;
}

ResultCode OrvellaSequences::handleBody() {
  job.log.Trace(Diag::kInformation, "Orvella Body Sequence found.");
  const std::size_t size = bodyEnd.find(job, kOrvellaDataBegin, kOrvellaMarker);
  if (size == 0) {
    return reportUnclosed("Begin of Orvella control sequence (body) without valid end found!",
                          kOrvellaMarker.size());
  }
  const std::uint64_t place = job.stream.position();
  body = job.stream.peek(size).substr(0, size);
  blankBody();
  job.stream.consume(size);
  job.stream.putString(blanks);
  Settings::BarcodeSettings settings = job.application.barcode;
  settings.fromJob = true;
  std::string barcode;
  ResultCode result = DecodeOrvella(orvellaHeader, body, settings);
  if (result == Diag::kSuccess) {
    result = Engine::GenerateWithSettings(settings, barcode,
                                          static_cast<std::uint32_t>(job.application.memorySize));
  }
  if (result == Diag::kSuccess) {
    job.stream.putString(barcode);
  } else {
    job.noteSequenceFailed(place);
  }
  return result;
}

// Every 0 byte of a body counts as the four characters that stand for it in a text.
void OrvellaSequences::blankBody() {
  constexpr std::string_view kZero = "\\x00";
  blanks.clear();
  std::string_view rest = body;
  while (true) {
    const std::size_t zero = rest.find('\0');
    AppendInPlaceOf(rest.substr(0, zero), job, blanks);
    if (zero == std::string_view::npos) return;
    AppendInPlaceOf(kZero, job, blanks);
    rest.remove_prefix(zero + 1);
  }
}

ResultCode OrvellaSequences::reportUnclosed(std::string_view message, std::size_t front) {
  job.log.Trace(Diag::kWarning, message);
  job.noteBarcodeMissing(job.stream.position(), "has no end");
  job.stream.forward(std::min(front, job.stream.window().size()));
  return Diag::kUnclosedSequence;
}

}  // namespace Filter
