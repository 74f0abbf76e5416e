#include "filter/Arguments.h"

#include "filter/PostScriptString.h"
#include "settings/Values.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Filter {
namespace {

// For every "(" of a text the length of the string that it begins; 0 for one that nothing closes.
// One pass for all of them, since a text may hold nothing but parentheses.
std::vector<std::size_t> LiteralLengths(std::string_view text) {
  std::vector<std::size_t> lengths(text.size());
  std::vector<std::size_t> open;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\\')
      ++at;
    else if (text[at] == '(')
      open.push_back(at);
    else if (text[at] == ')' && !open.empty()) {
      lengths[open.back()] = at + 1 - open.back();
      open.pop_back();
    }
  }
  return lengths;
}

struct Piece {
  std::size_t size;
  bool isString;
};

// What stands at the front of a text that begins with a double quote or a string's opener. A
// quoted value is one piece, to its closing quote or the end; so is "<<".
Piece NextPiece(std::string_view text, std::size_t literalLength) {
  if (text.front() == '"') return {std::min(text.find('"', 1), text.size() - 1) + 1, false};
  if (text.starts_with("<<")) return {2, false};
  if (text.front() == '(') return {std::max<std::size_t>(literalLength, 1), literalLength > 0};
  StringScanner scanner;
  const std::size_t size = scanner.scan(text);
  return size >= StringScanner::kNoString ? Piece{1, false} : Piece{size, true};
}

std::string Quoted(std::string value) {
  Settings::ReplaceAll(value, "\"", "\"\"");
  return '"' + value + '"';
}

// Makes the option name at the end of `text`, if there is one, take the value that follows: a
// PostScript name /data becomes --data, and a name that touches its value gets an equals sign.
void JoinOptionName(std::string& text) {
  constexpr std::string_view kSeparators = " \t\n\f\r";
  const std::size_t last = text.find_last_not_of(kSeparators);
  if (last == std::string::npos) return;
  // Where strings touch, all that was read is one word, which must not be searched for each of
  // them.
  constexpr std::size_t kLongestName = 64;
  const std::size_t from = last + 1 - std::min(last + 1, kLongestName);
  const std::size_t separator =
      std::string_view(text).substr(from, last + 1 - from).find_last_of(kSeparators);
  if (separator == std::string::npos && from > 0) return;
  const std::size_t begin = from + separator + 1;
  const std::string_view word = std::string_view(text).substr(begin, last + 1 - begin);
  if (word.find('=') != std::string_view::npos) return;
  const bool touching = last + 1 == text.size();
  const bool postScriptName = word.starts_with('/') && word.size() > 1;
  if (touching && (postScriptName || word.starts_with("--"))) text += '=';
  if (postScriptName) text.replace(begin, 1, "--");
}

}  // namespace

void decodeArguments(std::string& text, Diag::TraceLog& log) {
  constexpr std::string_view kStops = "(<\"";
  const std::string before = std::exchange(text, {});
  const std::vector<std::size_t> lengths = LiteralLengths(before);
  std::string_view rest = before;
  while (!rest.empty()) {
    const std::size_t plain = std::min(rest.find_first_of(kStops), rest.size());
    text += rest.substr(0, plain);
    rest.remove_prefix(plain);
    if (rest.empty()) return;
    const auto [size, isString] = NextPiece(rest, lengths[before.size() - rest.size()]);
    const std::string_view token = rest.substr(0, size);
    rest.remove_prefix(size);
    if (!isString) {
      text += token;
      continue;
    }
    const std::string value = Quoted(DecodeString(token));
    log.Trace(Diag::kDebug, "Converted \"", Diag::Foreign{token}, "\" to \"", Diag::Foreign{value},
              "\"");
    JoinOptionName(text);
    text += value;
  }
}

}  // namespace Filter
