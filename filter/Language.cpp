// Which printer language a job is in: from its first line, and from PJL commands on its way.
#include "engine/PclCodes.h"
#include "filter/Filter.h"
#include "settings/Values.h"

#include <algorithm>

namespace Filter {
namespace {

// Only this much of the first line decides.
constexpr std::size_t kLongestFirstLine = 4095;
constexpr std::string_view kPostScriptHeader = "%!PS";
constexpr std::string_view kWhitespace = "\t\n\f\r ";

bool EqualsIgnoringCase(std::string_view text, std::string_view upperCaseWord) {
  std::string upper(text.substr(0, upperCaseWord.size()));
  return Settings::ToUpper(upper) == upperCaseWord;
}

bool BeginsPcl(std::string_view line) {
  return line.find(Engine::kUniversalExit) != std::string_view::npos ||
         line.find(kPostScriptHeader) == std::string_view::npos;
}

}  // namespace

Diag::ResultCode Filter::detectLanguage() {
  std::string_view line = stream.peek(kLongestFirstLine).substr(0, kLongestFirstLine);
  line = line.substr(0, line.find('\n'));
  if (stream.window().empty()) {
    log.Trace(Diag::kWarning, "Nothing to filter!");
    return Diag::kNothingLeft;
  }
  if (application.streamType == Settings::kStreamNotSet) {
    application.streamType = BeginsPcl(line) ? Settings::kStreamPcl : Settings::kStreamPostScript;
  }
  // PJL can switch a job that begins as PCL; a job that begins as PostScript has no PJL in it.
  pjlActive = application.streamType == Settings::kStreamPcl;
  if (application.insertMode == Settings::kInsertNotSet) {
    application.insertMode = Settings::kInsertBeforeString;
  }
  return Diag::kSuccess;
}

// A PJL command `@PJL ENTER LANGUAGE = <value>` switches the printer language for the rest of the
// job. Words may be in any letter case with any white space between them; all of it is written.
void Filter::handlePjl() {
  constexpr std::size_t kLongestValue = 10;
  if (!EqualsIgnoringCase(stream.peek(4), "@PJL")) {
    stream.forward(1);
    return;
  }
  if (!passWord("@PJL") || !passWord("ENTER") || !passWord("LANGUAGE") || !passWord("=")) return;
  const std::string_view value = stream.peek(kLongestValue);
  if (EqualsIgnoringCase(value, "PCL")) {
    enterPersonality(Settings::kStreamPcl, "PCL");
  } else if (EqualsIgnoringCase(value, "POSTSCRIPT")) {
    enterPersonality(Settings::kStreamPostScript, "PostScript");
  }
}

void Filter::enterPersonality(Settings::StreamType type, std::string_view name) {
  log.Trace(Diag::kInformation, "Entering personality ", name, ".");
  application.streamType = type;
}

// Writes the word and the white space behind it if it comes next.
bool Filter::passWord(std::string_view word) {
  if (!EqualsIgnoringCase(stream.peek(word.size()), word)) return false;
  stream.forward(word.size());
  skipWhitespace();
  return true;
}

void Filter::skipWhitespace() {
  while (true) {
    const std::string_view window = stream.window();
    const std::size_t end = std::min(window.find_first_not_of(kWhitespace), window.size());
    stream.forward(end);
    if (window.empty() || end < window.size()) return;
  }
}

}  // namespace Filter
