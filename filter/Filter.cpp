#include "filter/Filter.h"

#include "engine/PclCodes.h"
#include "filter/OrvellaParameters.h"
#include "settings/GlobalSettings.h"

#include <algorithm>

namespace Filter {

Filter::Filter()
    : application(g_settings.application),
      log(g_settings.trace),
      insertArmed(application.insertPattern.empty()),
      simpleStringStops("()\\\n") {
  if (!application.escapeBegin.empty()) simpleStringStops.add(application.escapeBegin.front());
}

Diag::ResultCode Filter::run() {
  if (application.inputFileGiven && !stream.open(application.inputFile)) {
    log.Trace(Diag::kError, "Input file not found: ", application.inputFile);
    return Diag::kInvalidArgument;
  }
  stream.flush();
  if (const ResultCode result = detectLanguage()) return result;
  if (application.pclReset) stream.putString(Engine::kPclJobOpener);
  filterJob();
  if (!pendingBarcode.empty()) {
    log.Trace(Diag::kWarning, "End of job reached before the insertion point of a barcode!");
  }
  stream.flush();
  if (application.pclReset) {
    stream.putString(Engine::kPclJobCloser);
    stream.flush();
  }
  return firstResult;
}

void Filter::filterJob() {
  while (true) {
    const std::string_view window = stream.window();
    if (window.empty()) return;
    const std::size_t plain = interestingBytes().find(window);
    stream.forward(plain);
    if (plain < window.size()) keepFirst(dispatch());
  }
}

// Handles what stands at the front of the stream. The order of the rules decides between them.
Diag::ResultCode Filter::dispatch() {
  const std::string_view next = stream.peek(2);
  const char c = next.front();
  const bool postScript = application.streamType == Settings::kStreamPostScript;
  if (awaitsPattern() && c == application.insertPattern.front()) {
    handleInsertPattern();
  } else if (c == '@' && pjlActive) {
    handlePjl();
  } else if (c == '%' && postScript) {
    copyComment();
  } else if (next.starts_with("<<") && postScript) {
    stream.forward(2);
  } else if ((c == '(' || c == '<') && postScript) {
    return handlePostScriptString();
  } else if (application.escapeBegin.starts_with(c)) {
    return handleEscapeSequence();
  } else if (c == '\n') {
    handleLineFeed();
  } else if (c == kOrvellaControl && application.orvella) {
    return handleOrvellaSequence();
  } else {
    stream.forward(1);
  }
  return Diag::kSuccess;
}

// The bytes that dispatch has to see in the present state; all others are plain.
const ByteSet& Filter::interestingBytes() {
  const bool postScript = application.streamType == Settings::kStreamPostScript;
  const bool pattern = awaitsPattern();
  const bool lines =
      application.insertMode == Settings::kInsertBeforeLine ||
      (application.insertMode == Settings::kInsertAfterLine && !pendingBarcode.empty());
  const unsigned state = 1U * postScript + 2U * pattern + 4U * lines + 8U * pjlActive;
  if (state == interestingState) return interesting;
  interestingState = state;
  interesting = ByteSet();
  if (postScript) interesting = ByteSet("%(<");
  if (pattern) interesting.add(application.insertPattern.front());
  if (lines) interesting.add('\n');
  if (pjlActive) interesting.add('@');
  if (!application.escapeBegin.empty()) interesting.add(application.escapeBegin.front());
  if (application.orvella) interesting.add(kOrvellaControl);
  return interesting;
}

void Filter::handleLineFeed() {
  stream.forward(1);
  if (application.insertMode == Settings::kInsertBeforeLine) stream.beginHold();
  if (application.insertMode == Settings::kInsertAfterLine && insertArmed) writePending();
}

// Passes a PostScript comment up to its line feed; nothing inside is searched for sequences.
void Filter::copyComment() {
  while (true) {
    const std::string_view window = stream.window();
    const std::size_t lineFeed = std::min(window.find('\n'), window.size());
    stream.forward(lineFeed);
    if (window.empty() || lineFeed < window.size()) return;
  }
}

// The run returns the first failure and goes on filtering.
void Filter::keepFirst(ResultCode result) {
  if (firstResult == Diag::kSuccess) firstResult = result;
}

bool Filter::lookingAt(std::string_view text) {
  return stream.peek(text.size()).starts_with(text);
}

}  // namespace Filter
