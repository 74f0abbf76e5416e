#include "parser/IniFileParser.h"

#include <algorithm>
#include <string_view>

namespace Parser {
namespace {

// A longer line is split; its rest is read as the next line.
constexpr int kMaxLineLength = 4095;

std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  if (line.ends_with('\n')) line.remove_suffix(1);
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

}  // namespace

Diag::ResultCode IniFileParser::open(const std::string& fileName) {
  pending.clear();
  file.reset(std::fopen(fileName.c_str(), "rt"));
  return file ? Diag::kSuccess : Diag::kAccessDenied;
}

bool IniFileParser::readLine(std::string& line) {
  char buffer[kMaxLineLength + 1];
  while (file && std::fgets(buffer, sizeof buffer, file.get())) {
    line = Trimmed(buffer);
    if (!line.empty() && line.front() != '#') return true;
  }
  return false;
}

Diag::ResultCode IniFileParser::nextOption(std::string& name) {
  name.clear();
  if (!pending.empty()) {
    name.swap(pending);
    return Diag::kInvalidArgument;
  }
  std::string line;
  if (!readLine(line)) return Diag::kNothingLeft;
  const std::size_t equals = line.find('=');
  name = line.substr(0, equals);
  if (equals != std::string::npos) pending = line.substr(equals + 1);
  return Diag::kSuccess;
}

Diag::ResultCode IniFileParser::optionArgument(std::string& value) {
  value.clear();
  value.swap(pending);
  return value.empty() ? Diag::kNothingLeft : Diag::kSuccess;
}

}  // namespace Parser
