#include "filter/StringFinder.h"

#include <algorithm>
#include <array>

namespace Filter {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
// Encoders of binary data break lines at 60 to 80 characters; text has a blank before that.
constexpr std::size_t kDataLine = 40;

constexpr std::array<std::string_view, 14> kOperators = {
    "moveto",  "lineto",   "curveto",   "closepath", "stroke",  "gsave",  "grestore",
    "setfont", "showpage", "scalefont", "findfont",  "setgray", "rotate", "newpath"};

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 32 && c != '\t' && c != '\n' && c != '\f' && c != '\r') || byte == 127;
}

bool EndsWithOperator(std::string_view line) {
  const std::string_view word = line.substr(line.find_last_of(" \t)]}") + 1);
  return std::find(kOperators.begin(), kOperators.end(), word) != kOperators.end();
}

bool IsDataLine(std::string_view line) {
  return line.size() >= kDataLine && !line.ends_with('\\') && line.find(' ') == kNone;
}

// A whole line between two line ends.
bool IsForeign(std::string_view line) {
  return line.starts_with("%%") || EndsWithOperator(line) || IsDataLine(line);
}

}  // namespace

std::size_t BehindForeignBytes(std::string_view text) {
  const auto control = std::find_if(text.rbegin(), text.rend(), IsControl);
  std::size_t behind = static_cast<std::size_t>(text.rend() - control);
  if (const std::size_t end = text.rfind("~>"); end != kNone) behind = std::max(behind, end + 2);
  // Lines from the last to the first that can still matter. What stands behind the last line end
  // is the token's own line, what stands in front of the first one is cut off by the string.
  std::size_t end = text.find_last_of("\r\n");
  while (end != kNone && end > behind) {
    const std::size_t before = end == 0 ? kNone : text.find_last_of("\r\n", end - 1);
    const std::size_t begin = before == kNone ? 0 : before + 1;
    const std::string_view line = text.substr(begin, end - begin);
    if (before == kNone ? EndsWithOperator(line) : IsForeign(line)) return std::max(behind, end);
    end = before;
  }
  return behind;
}

}  // namespace Filter
