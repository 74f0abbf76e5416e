#include "parser/StringParser.h"

#include <algorithm>

namespace Parser {
namespace {

constexpr const char* kSeparators = " \t\n\f\r";
constexpr const char* kSeparatorsAndEquals = " \t\n\f\r=";

}  // namespace

Diag::ResultCode StringParser::nextOption(std::string& name) {
  name.clear();
  if (!inGroup) skipSeparators();
  if (atEnd()) return Diag::kNothingLeft;
  if (inGroup) {
    name = text[position++];
    return Diag::kSuccess;
  }
  if (text.size() - position > 1) {
    if (text[position] == '/') {
      name = takeUntil(kSeparatorsAndEquals);
      return Diag::kSuccess;
    }
    if (text[position] == '-' && text[position + 1] == '-') {
      position += 2;
      if (atEnd()) return Diag::kInvalidArgument;
      name = takeUntil(kSeparatorsAndEquals);
      return Diag::kSuccess;
    }
    if (text[position] == '-') {
      name = text[position + 1];
      position += 2;
      inGroup = true;
      return Diag::kSuccess;
    }
  }
  name = text.substr(position);
  return Diag::kInvalidArgument;
}

Diag::ResultCode StringParser::optionArgument(std::string& value) {
  value.clear();
  skipSeparators();
  if (atEnd()) return Diag::kNothingLeft;
  if (!inGroup && text[position] == '=') ++position;
  inGroup = false;
  skipSeparators();
  if (atEnd()) return Diag::kNothingLeft;
  if (text[position] == '"') return takeQuoted(value);
  value = takeUntil(kSeparators);
  return Diag::kSuccess;
}

void StringParser::skipSeparators() {
  position = std::min(text.find_first_not_of(kSeparators, position), text.size());
}

std::string StringParser::takeUntil(const char* stops) {
  const std::size_t begin = position;
  position = std::min(text.find_first_of(stops, begin), text.size());
  return text.substr(begin, position - begin);
}

// Two double quotes in a row stand for one.
Diag::ResultCode StringParser::takeQuoted(std::string& value) {
  for (++position; !atEnd(); ++position) {
    if (text[position] == '"') {
      ++position;
      if (atEnd() || text[position] != '"') return Diag::kSuccess;
    }
    value += text[position];
  }
  return Diag::kInvalidArgument;
}

}  // namespace Parser
