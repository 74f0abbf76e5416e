#include "filter/Language.h"

#include "engine/PclCodes.h"
#include "settings/Values.h"

#include <algorithm>
#include <string>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kWhitespace = "\t\n\f\r ";
// A PDF reader looks for the header in so many bytes (ISO 32000-1, annex H).
constexpr std::size_t kPdfHeaderBytes = 1024;

bool EqualsIgnoringCase(std::string_view text, std::string_view upperCaseWord) {
  std::string upper(text.substr(0, upperCaseWord.size()));
  return Settings::ToUpper(upper) == upperCaseWord;
}

// What may stand in front of a PostScript header: blank lines, form feed, end of transmission.
std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f\x04"), text.size()));
  return text;
}

char LineEndOf(std::string_view beginning) {
  const std::size_t first = beginning.find_first_of("\r\n");
  const bool returnsOnly =
      first != kNone && first + 1 < beginning.size() && beginning.find('\n', first) == kNone;
  return returnsOnly ? '\r' : '\n';
}

void SkipWhitespace(Stream& stream) {
  while (true) {
    const std::string_view window = stream.window();
    const std::size_t end = std::min(window.find_first_not_of(kWhitespace), window.size());
    const bool more = end == window.size() && !window.empty();
    stream.forward(end);
    if (!more) return;
  }
}

// Writes the word and the white space behind it if it comes next.
bool PassWord(Stream& stream, std::string_view word) {
  if (!EqualsIgnoringCase(stream.peek(word.size()), word)) return false;
  stream.forward(word.size());
  SkipWhitespace(stream);
  return true;
}

}  // namespace

JobKind KindOf(std::string_view beginning) {
  beginning = beginning.substr(0, kDecidingBytes);
  JobKind kind;
  kind.lineEnd = LineEndOf(beginning);
  const std::string_view text = WithoutLeadingBlanks(beginning);
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const bool header = text.starts_with("%!");
  kind.pdf = !header && !text.starts_with("\033E") &&
             beginning.substr(0, kPdfHeaderBytes).find("%PDF-") != kNone;
  kind.postScript =
      line.find(Engine::kUniversalExit) == kNone && (header || line.find("%!PS") != kNone);
  return kind;
}

bool EndsLanguage(std::string_view text) {
  if (!text.starts_with(Engine::kUniversalExit)) return false;
  text.remove_prefix(Engine::kUniversalExit.size());
  if (text.starts_with("\033E")) return true;
  text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
  return EqualsIgnoringCase(text, "@PJL");
}

std::optional<Settings::StreamType> PassPjl(Stream& stream) {
  constexpr std::size_t kLongestValue = 10;
  if (!EqualsIgnoringCase(stream.peek(4), "@PJL")) {
    stream.forward(1);
    return std::nullopt;
  }
  for (const std::string_view word : {"@PJL", "ENTER", "LANGUAGE", "="}) {
    if (!PassWord(stream, word)) return std::nullopt;
  }
  const std::string_view value = stream.peek(kLongestValue);
  if (EqualsIgnoringCase(value, "PCL")) return Settings::kStreamPcl;
  if (EqualsIgnoringCase(value, "POSTSCRIPT")) return Settings::kStreamPostScript;
  return std::nullopt;
}

}  // namespace Filter
