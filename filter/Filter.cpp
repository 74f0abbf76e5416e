#include "filter/Filter.h"

#include "engine/PclCodes.h"
#include "filter/Language.h"
#include "settings/GlobalSettings.h"

#include <algorithm>
#include <cstring>

namespace Filter {

Filter::Filter()
    : job(g_settings.application, g_settings.trace),
      maker(job),
      placement(job),
      strings(job, maker, placement),
      autoInsert(job, maker),
      raw(job, maker, placement),
      orvella(job) {}

Diag::ResultCode Filter::run() {
  const Settings::AppSettings& application = job.application;
  if (application.inputFileGiven && !job.stream.open(application.inputFile)) {
    job.log.Trace(Diag::kError, "Input file not found: ", Diag::Foreign{application.inputFile});
    return Diag::kInvalidArgument;
  }
  job.stream.flush();
  if (const ResultCode result = detectLanguage()) return result;
  const bool framed = application.pclReset && !isPdf;
  if (framed) job.stream.putString(Engine::kPclJobOpener);
  if (isPdf) {
    copyWholeJob();
  } else {
    filterJob();
    placement.finish();
  }
  if (framed) job.stream.putString(Engine::kPclJobCloser);
  return finish();
}

Diag::ResultCode Filter::detectLanguage() {
  Settings::AppSettings& application = job.application;
  const std::string_view beginning = job.stream.peek(kDecidingBytes);
  if (beginning.empty()) {
    if (job.stream.readError() != 0) return finish();
    job.log.Trace(Diag::kWarning, "Nothing to filter!");
    return Diag::kNothingLeft;
  }
  const JobKind kind = KindOf(beginning);
  isPdf = kind.pdf;
  job.lineEnd = kind.lineEnd;
  postScriptGiven = job.isPostScript();
  if (application.streamType == Settings::kStreamNotSet) {
    application.streamType = kind.postScript ? Settings::kStreamPostScript : Settings::kStreamPcl;
  }
  // PJL can switch a job that begins as PCL; PostScript has none in it until it ends.
  pjlActive = application.streamType == Settings::kStreamPcl;
  if (application.insertMode == Settings::kInsertNotSet) {
    application.insertMode = Settings::kInsertBeforeString;
  }
  if (isPdf) job.log.Trace(Diag::kInformation, "The job is a PDF file and passes unchanged.");
  return Diag::kSuccess;
}

// Each language is filtered up to the place where the other begins.
void Filter::filterJob() {
  while (job.isPostScript() ? filterPostScript() : filterPcl()) continue;
}

// False at the end of the job.
bool Filter::filterPostScript() {
  const Settings::AppSettings& application = job.application;
  if (!postScript) {
    postScript.emplace(job.stream,
                       Marks{.begin = application.escapeBegin,
                             .insertPattern = application.insertPattern,
                             .lineEnd = job.lineEnd,
                             .stringsEndWithLines = application.lineByLine,
                             .splitBegins = application.insertMode == Settings::kInsertAuto,
                             .languageMayEnd = !postScriptGiven,
                             .orvella = application.orvella,
                             .lineBegins = application.insertMode == Settings::kInsertBeforeLine});
    postScript->onSequenceInStream([this](std::uint64_t place) {
      job.page = postScript->pages();
      job.log.Trace(Diag::kWarning,
                    "A barcode escape sequence stands in a counted stream, which stays as it is.");
      job.noteBarcodeMissing(place, "stands in a counted stream");
      keepFirst(Diag::kUnclosedSequence);
    });
  }
  job.stream.setLookBack(application.insertMode == Settings::kInsertAuto ? Stream::kLookBack
                                                                         : kReaderText);
  while (job.isPostScript()) {
    const Found found = postScript->next({.strings = placement.waitsForString(),
                                          .lineEnds = placement.waitsForLineEnd(),
                                          .pattern = placement.waitsForPattern(),
                                          .pjl = pjlActive});
    if (found == Found::kEnd) return false;
    job.page = postScript->pages();
    keepFirst(dispatch(found, postScript->lineBegin()));
  }
  return true;
}

bool Filter::filterPcl() {
  const Settings::AppSettings& application = job.application;
  const bool beforeLine = application.insertMode == Settings::kInsertBeforeLine;
  if (!pcl) {
    pcl.emplace(job.stream, PclScanner::Marks{.begin = application.escapeBegin,
                                              .insertPattern = application.insertPattern,
                                              .lineEnd = job.lineEnd,
                                              .orvella = application.orvella,
                                              .pjl = pjlActive,
                                              .lineBegins = beforeLine});
    pcl->onSequenceInData([this](std::uint64_t place, const char* where) {
      job.page = pcl->pages() + 1;
      job.noteBarcodeMissing(place, where);
      keepFirst(Diag::kUnclosedSequence);
    });
  }
  pcl->beginLanguage();
  job.stream.setLookBack(std::min(application.escapeBegin.size(), Stream::kLookBack));
  while (!job.isPostScript()) {
    const Found found = pcl->next(
        {.lineEnds = placement.waitsForLineEnd(), .pattern = placement.waitsForPattern()});
    if (found == Found::kEnd) return false;
    job.page = pcl->pages() + 1;
    keepFirst(dispatch(found, pcl->lineBegin()));
  }
  return true;
}

// Handles what stands at the front of the stream.
Diag::ResultCode Filter::dispatch(Found found, std::uint64_t lineBegin) {
  using enum Found;
  switch (found) {
    case kString:
      return job.application.insertMode == Settings::kInsertAuto
                 ? autoInsert.handlePostScriptString(postScript->stringSize(),
                                                     postScript->producer())
                 : strings.handlePostScriptString(postScript->stringSize(), lineBegin);
    case kOtherString:
      job.stream.forward(postScript->stringSize());
      placement.stringWritten();
      break;
    case kBeginToken:
      return raw.handleEscapeSequence(lineBegin);
    case kPattern:
      placement.handleInsertPattern(lineBegin);
      break;
    case kLineEnd:
      handleLineEnd();
      break;
    case kControl:
      return orvella.handleOrvellaSequence();
    case kAtSign:
      handlePjl();
      break;
    case kExit:
      pjlActive = true;
      job.stream.forward(Engine::kUniversalExit.size());
      enterPersonality(Settings::kStreamPcl);
      break;
    case kEnd:
      break;
  }
  return Diag::kSuccess;
}

void Filter::handleLineEnd() {
  job.stream.forward(1);
  placement.lineEnded();
}

void Filter::handlePjl() {
  if (const auto type = PassPjl(job.stream)) enterPersonality(*type);
}

void Filter::enterPersonality(Settings::StreamType type) {
  job.log.Trace(Diag::kInformation, "Entering personality ",
                type == Settings::kStreamPcl ? "PCL" : "PostScript", ".");
  job.application.streamType = type;
}

void Filter::copyWholeJob() {
  while (!job.stream.window().empty()) job.stream.forward(job.stream.window().size());
}

// Writes what waits, and says what could not be read or written.
Diag::ResultCode Filter::finish() {
  job.stream.flush();
  if (const int error = job.stream.readError()) {
    job.log.Trace(Diag::kError, "Couldn't read the print job: ", std::strerror(error));
    return Diag::kJobStreamFailed;
  }
  if (const int error = job.stream.writeError()) {
    job.log.Trace(Diag::kError, "Couldn't write the print job: ", std::strerror(error));
    return Diag::kJobStreamFailed;
  }
  return firstResult;
}

// The run returns the first failure and goes on filtering.
void Filter::keepFirst(ResultCode result) {
  if (firstResult == Diag::kSuccess) firstResult = result;
}

}  // namespace Filter
