#include "filter/BeginToken.h"

#include "filter/PostScriptString.h"

#include <algorithm>
#include <string>

namespace Filter {
namespace {

// The length of the escape that `text` begins with.
std::size_t EscapeLength(std::string_view text) {
  if (text.starts_with("\\\r\n")) return 3;
  std::size_t length = 2;
  const auto isOctal = [&](std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '7';
  };
  if (!isOctal(1)) return std::min(length, text.size());
  while (length < 4 && isOctal(length)) ++length;
  return length;
}

}  // namespace

BeginMatch MatchBegin(std::string_view text, std::string_view token) {
  while (!token.empty()) {
    if (text.empty()) return BeginMatch::kNone;
    if (text.front() == ')') return BeginMatch::kPart;
    const std::size_t length = text.front() == '\\' ? EscapeLength(text) : 1;
    // Empty for a continued line.
    const std::string bytes = decodeLiteral(text.substr(0, length));
    if (!token.starts_with(bytes)) return BeginMatch::kNone;
    token.remove_prefix(bytes.size());
    text.remove_prefix(length);
  }
  return BeginMatch::kWhole;
}

std::size_t PartAtEnd(std::string_view bytes, std::string_view token) {
  for (std::size_t size = std::min(bytes.size(), token.size() - 1); size > 0; --size) {
    if (bytes.ends_with(token.substr(0, size))) return size;
  }
  return 0;
}

}  // namespace Filter
