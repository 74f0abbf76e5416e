// Orvella control sequences: a header that holds the parameters of the barcodes to come, and a body
// that holds the data of one, in whose place it is written.
#include "engine/GenerateWithSettings.h"
#include "filter/Filter.h"
#include "filter/Limits.h"
#include "filter/OrvellaParameters.h"

namespace Filter {

// Called with the control byte next.
Diag::ResultCode Filter::handleOrvellaSequence() {
  if (lookingAt(kOrvellaHeaderBegin)) return handleOrvellaHeader();
  if (lookingAt(kOrvellaMarker)) return handleOrvellaBody();
  stream.forward(1);
  return Diag::kSuccess;
}

Diag::ResultCode Filter::handleOrvellaHeader() {
  log.Trace(Diag::kInformation, "Orvella Header Sequence found.");
  std::string header;
  if (!readOrvellaSequence(header, kOrvellaHeaderBegin.size(), kOrvellaHeaderEnd)) {
    log.Trace(Diag::kWarning,
              "Begin of Orvella control sequence (header) without valid end found!");
    return Diag::kUnclosedSequence;
  }
  writeInPlaceOf(header);
  orvellaHeader = header;
  return Diag::kSuccess;
}

Diag::ResultCode Filter::handleOrvellaBody() {
  log.Trace(Diag::kInformation, "Orvella Body Sequence found.");
  std::string body;
  if (!readOrvellaSequence(body, kOrvellaDataBegin, kOrvellaMarker)) {
    log.Trace(Diag::kWarning, "Begin of Orvella control sequence (body) without valid end found!");
    return Diag::kUnclosedSequence;
  }
  writeInPlaceOf(OrvellaText(body));
  Settings::BarcodeSettings settings = application.barcode;
  if (const ResultCode result = DecodeOrvella(orvellaHeader, body, settings)) return result;
  std::string barcode;
  const ResultCode result = Engine::GenerateWithSettings(
      settings, barcode, static_cast<std::uint32_t>(application.memorySize));
  if (result == Diag::kSuccess) stream.putString(barcode);
  return result;
}

// Appends bytes to `sequence` until `end` stands behind its first `front` bytes. At the end of the
// job, or when the sequence is longer than any real one, writes what was read and returns false.
bool Filter::readOrvellaSequence(std::string& sequence, std::size_t front, std::string_view end) {
  while (sequence.size() < front + end.size() || !sequence.ends_with(end)) {
    const int byte = stream.get();
    if (byte == Stream::kEndOfInput || sequence.size() >= kLongestSequence) {
      stream.unget(byte);
      stream.putString(sequence);
      return false;
    }
    sequence += static_cast<char>(byte);
  }
  return true;
}

}  // namespace Filter
