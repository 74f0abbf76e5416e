// From the text of a sequence to a barcode, and the barcode to its place in the job.
#include "engine/GenerateWithSettings.h"
#include "filter/Filter.h"
#include "filter/PostScriptString.h"
#include "filter/v1/Version1.h"
#include "parser/StringParser.h"

namespace Filter {
namespace {

Diag::ResultCode ReadParameters(const std::string& text, bool version1,
                                Settings::BarcodeSettings& settings) {
  if (version1) return ParseVersion1(text, settings);
  Parser::StringParser parser(text);
  return settings.readOptions(parser);
}

}  // namespace

// Makes the barcode that the options in `text` describe and leaves in `text` what is to be
// inserted: the wrapped barcode, nothing when the options are wrong, or the messages when
// generation failed, in PostScript as a string that is shown.
Diag::ResultCode Filter::processSequence(std::string& text) {
  log.Trace(Diag::kDebug, "Barcode escape sequence (without begin and end token): ", text);
  const std::string sequence = text;
  Settings::BarcodeSettings settings = application.barcode;
  if (const ResultCode result = ReadParameters(sequence, application.v1format, settings)) {
    log.Trace(Diag::kError, "Barcode Sequence: ", sequence);
    text.clear();
    return result;
  }
  if (settings.embed == -1) settings.embed = 1;
  if (settings.format == Settings::kFormatNotSet) settings.format = application.streamFormat();
  const ResultCode result = Engine::GenerateWithSettings(
      settings, text, static_cast<std::uint32_t>(application.memorySize));
  if (result == Diag::kSuccess) return result;
  log.Trace(Diag::kError, "Barcode Sequence: ", sequence);
  if (application.streamType == Settings::kStreamPostScript) text = encodeLiteral(text) + " show";
  return result;
}

// `stringFollows`: the string that held the sequence was pushed back and is written afterwards.
Diag::ResultCode Filter::insertBarcode(std::string& sequence, bool stringFollows) {
  const ResultCode result = processSequence(sequence);
  const bool ignored =
      result == Diag::kNothingLeft ? application.ignoreNoData : application.ignoreBarcodeError;
  if (result == Diag::kSuccess || !ignored) place(sequence, stringFollows);
  // Nothing can come before this sequence's text any more.
  if (application.insertMode == Settings::kInsertBeforeString) stream.endHold();
  return result;
}

void Filter::place(std::string_view output, bool stringFollows) {
  const int mode = application.insertMode;
  if (insertArmed && mode == Settings::kInsertAfterString && !stringFollows) {
    stream.putString(output);
    disarm();
  } else if (insertArmed &&
             (mode == Settings::kInsertBeforeLine || mode == Settings::kInsertBeforeString)) {
    stream.putBeforeHeld(output);
    disarm();
  } else {
    pendingBarcode += output;
  }
}

void Filter::writePending() {
  if (pendingBarcode.empty()) return;
  stream.putString(pendingBarcode);
  pendingBarcode.clear();
  disarm();
}

// With an insert pattern, the next barcode waits for the pattern again.
void Filter::disarm() {
  if (!application.insertPattern.empty()) insertArmed = false;
}

bool Filter::awaitsPattern() const {
  return !pendingBarcode.empty() && !application.insertPattern.empty() && !insertArmed;
}

}  // namespace Filter
