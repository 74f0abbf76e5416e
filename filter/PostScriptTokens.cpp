#include "filter/PostScriptTokens.h"

#include "filter/PostScriptString.h"
#include "settings/Values.h"

#include <algorithm>
#include <string>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kSpaces{" \t\n\f\r\0", 6};
constexpr std::string_view kNameEnds{" \t\n\f\r\0()<>[]{}/%", 16};

bool BeginsNumber(std::string_view token) {
  const std::size_t first = token.find_first_not_of("+-.");
  return first != kNone && first <= 2 && token[first] >= '0' && token[first] <= '9';
}

std::size_t SkipSpaceAndComments(std::string_view text, std::size_t at) {
  while (true) {
    at = std::min(text.find_first_not_of(kSpaces, at), text.size());
    if (at == text.size() || text[at] != '%') return at;
    at = std::min(text.find_first_of("\r\n", at), text.size());
  }
}

Token Word(std::string_view text, std::size_t begin) {
  const bool literal = text[begin] == '/';
  // A second slash asks for the name's value at once.
  const std::size_t from = literal && text.substr(begin).starts_with("//") ? begin + 2 : begin + 1;
  const std::size_t end = text.find_first_of(kNameEnds, from);
  if (end == kNone) return {Token::kEnd, begin, text.size()};
  const std::string_view word = text.substr(begin, end - begin);
  if (literal) return {Token::kLiteralName, begin, end};
  return {BeginsNumber(word) ? Token::kNumber : Token::kName, begin, end};
}

Token String(std::string_view text, std::size_t begin) {
  StringScanner scanner;
  const std::size_t size = scanner.scan(text.substr(begin));
  if (size == kNone) return {Token::kEnd, begin, text.size()};
  if (size == StringScanner::kNoString) return {Token::kName, begin, begin + 1};
  return {Token::kString, begin, begin + size};
}

Token Angle(std::string_view text, std::size_t begin) {
  if (begin + 1 == text.size()) return {Token::kEnd, begin, text.size()};
  const char next = text[begin + 1];
  if (text[begin] == '<' && next == '<') return {Token::kOpenDictionary, begin, begin + 2};
  if (text[begin] == '<') return String(text, begin);
  if (next == '>') return {Token::kCloseDictionary, begin, begin + 2};
  return {Token::kName, begin, begin + 1};  // a lone ">" is an error of the job's
}

}  // namespace

Token NextToken(std::string_view text, std::size_t at) {
  const std::size_t begin = SkipSpaceAndComments(text, at);
  if (begin == text.size()) return {Token::kEnd, begin, begin};
  switch (text[begin]) {
    case '(':
      return String(text, begin);
    case ')':
      return {Token::kName, begin, begin + 1};
    case '<':
    case '>':
      return Angle(text, begin);
    case '[':
      return {Token::kOpenArray, begin, begin + 1};
    case ']':
      return {Token::kCloseArray, begin, begin + 1};
    case '{':
      return {Token::kOpenProcedure, begin, begin + 1};
    case '}':
      return {Token::kCloseProcedure, begin, begin + 1};
    default:
      return Word(text, begin);
  }
}

bool IsPostScriptSpace(char c) {
  return kSpaces.find(c) != kNone;
}

double NumberIn(std::string_view token) {
  return Settings::TextToReal(std::string(token));
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace Filter
