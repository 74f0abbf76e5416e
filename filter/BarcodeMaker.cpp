#include "filter/BarcodeMaker.h"

#include "engine/GenerateWithSettings.h"
#include "filter/PlacementCode.h"
#include "filter/PostScriptString.h"
#include "filter/v1/Version1.h"
#include "parser/StringParser.h"

namespace Filter {

using Diag::Foreign;
using Diag::ResultCode;

namespace {

ResultCode ReadParameters(const std::string& text, bool version1,
                          Settings::BarcodeSettings& settings) {
  if (version1) return ParseVersion1(text, settings);
  Parser::StringParser parser(text);
  return settings.readOptions(parser);
}

}  // namespace

ResultCode BarcodeMaker::processSequence(std::string& text, std::uint64_t place) {
  const ResultCode result = make(text, place, false);
  if (result != Diag::kSuccess && !text.empty() && job.isPostScript())
    text = encodeLiteral(text) + " show";
  return result;
}

ResultCode BarcodeMaker::processForText(std::string& text, std::uint64_t place) {
  const ResultCode result = make(text, place, true);
  if (result != Diag::kSuccess && !text.empty()) text = MessagesAtText(text);
  return result;
}

// Leaves the bare messages in `text` when generation failed.
ResultCode BarcodeMaker::make(std::string& text, std::uint64_t place, bool atText) {
  const Settings::AppSettings& application = job.application;
  job.log.Trace(Diag::kDebug,
                "Barcode escape sequence (without begin and end token): ", Foreign{text});
  const std::string sequence = text;
  Settings::BarcodeSettings settings = application.barcode;
  settings.fromJob = true;
  if (const ResultCode result = ReadParameters(sequence, application.v1format, settings)) {
    job.log.Trace(Diag::kError, Diag::kSequence, Foreign{sequence});
    if (!settings.failurePlace.empty())
      job.log.Note(Diag::kError, Diag::kInFile, settings.failurePlace, ".");
    job.noteSequenceFailed(place);
    text.clear();
    return result;
  }
  if (settings.embed == -1) settings.embed = 1;
  if (settings.format == Settings::kFormatNotSet) settings.format = application.streamFormat();
  settings.drawnAtText = atText;
  const ResultCode result = Engine::GenerateWithSettings(
      settings, text, static_cast<std::uint32_t>(application.memorySize));
  if (result == Diag::kSuccess) return result;
  job.log.Trace(Diag::kError, Diag::kSequence, Foreign{sequence});
  job.noteSequenceFailed(place);
  return result;
}

bool BarcodeMaker::insertsAfter(ResultCode result) const {
  if (result == Diag::kSuccess) return true;
  return result == Diag::kNothingLeft ? !job.application.ignoreNoData
                                      : !job.application.ignoreBarcodeError;
}

}  // namespace Filter
