#include "parser/CommandLineParser.h"

#include <algorithm>

namespace Parser {
namespace {

std::string BeforeLineBreak(const char* element) {
  const std::string_view text = element ? element : "";
  return std::string(text.substr(0, text.find_first_of("\r\n")));
}

}  // namespace

CommandLineParser::CommandLineParser(int argc, const char* const* argv)
    : count(argc), elements(argv) {
  if (count > 1) current = BeforeLineBreak(elements[1]);
}

Diag::ResultCode CommandLineParser::nextOption(std::string& name) {
  name.clear();
  if (consumed() && !advance()) return Diag::kNothingLeft;
  if (inGroup) {
    name = current[position++];
    return Diag::kSuccess;
  }
  const std::string_view text = rest();
  if (text.size() > 1) {
    if (text[0] == '-' && text[1] != '-') return shortOption(name);
    if (text.starts_with("--") && text.size() > 2) return longOption(name, 2);
    if (text[0] == '/') return longOption(name, 1);
  }
  name = text;
  return Diag::kInvalidArgument;
}

Diag::ResultCode CommandLineParser::shortOption(std::string& name) {
  name = current[position + 1];
  position += 2;
  inGroup = true;
  return Diag::kSuccess;
}

// With a value in the same element the position stays on its "=".
Diag::ResultCode CommandLineParser::longOption(std::string& name, std::size_t dashes) {
  const std::size_t begin = position + dashes;
  const std::size_t equals = std::min(current.find('=', begin), current.size());
  name = current.substr(begin, equals - begin);
  position = equals;
  return Diag::kSuccess;
}

Diag::ResultCode CommandLineParser::optionArgument(std::string& value) {
  value.clear();
  inGroup = false;
  const bool wholeElement =
      consumed() || (current[position] == '=' && ++position == current.size());
  if (wholeElement && !advance()) return Diag::kNothingLeft;
  value = rest();
  skipElement();
  return Diag::kSuccess;
}

bool CommandLineParser::advance() {
  if (index >= count - 1) return false;
  skipElement();
  return true;
}

void CommandLineParser::skipElement() {
  if (index < count) ++index;
  position = 0;
  inGroup = false;
  // Behind the last element nothing must be left, or its value would be read once more.
  current = index < count ? BeforeLineBreak(elements[index]) : std::string();
}

}  // namespace Parser
