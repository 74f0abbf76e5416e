#include "parser/IniFileParser.h"

#include "diag/File.h"

#include <algorithm>
#include <utility>

namespace Parser {
namespace {

// A longer line is split; its rest is read as the next line.
constexpr std::size_t kLongestLine = 4095;
// UTF-8's, which editors put in front unseen.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r\n";
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

}  // namespace

Diag::ResultCode IniFileParser::open(const std::string& fileName) {
  Diag::FileContents file = Diag::ReadFile(fileName, Diag::FileKind::kAny, kLongestFile);
  take(std::move(file.bytes));
  return file.failure == Diag::ReadFailure::kNone ? Diag::kSuccess : Diag::kAccessDenied;
}

void IniFileParser::take(std::string bytes) {
  text = std::move(bytes);
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  position = 0;
  number = 0;
  line.clear();
  pending.clear();
}

// A line with its line feed, or as much of it as is read at once.
std::string_view IniFileParser::nextPiece() {
  std::string_view piece = std::string_view(text).substr(position, kLongestLine);
  piece = piece.substr(0, std::min(piece.find('\n'), kLongestLine - 1) + 1);
  if (position == 0 || text[position - 1] == '\n') ++number;
  position += piece.size();
  return piece;
}

bool IniFileParser::readLine() {
  while (position < text.size()) {
    const std::string_view piece = nextPiece();
    line = Trimmed(piece.substr(0, piece.find('\0')));
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
  if (!readLine()) return Diag::kNothingLeft;
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
