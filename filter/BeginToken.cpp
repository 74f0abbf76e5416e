#include "filter/BeginToken.h"

#include "filter/PostScriptString.h"

#include <algorithm>
#include <string>

namespace Filter {

BeginMatch MatchBegin(std::string_view text, std::string_view token) {
  if (token.empty()) return BeginMatch::kNone;
  while (!token.empty()) {
    if (text.empty()) return BeginMatch::kNone;
    if (text.front() == ')') return BeginMatch::kPart;
    std::string bytes;  // empty for a continued line
    std::size_t length = 1;
    if (text.front() != '\\') {
      bytes = text.front();
    } else {
      if (text.size() == 1) return BeginMatch::kNone;
      length = DecodeEscape(text, 1, bytes);
    }
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

void ForEachToken(const Stream& stream, std::size_t size, std::string_view token,
                  const std::function<void(std::uint64_t place)>& call) {
  if (token.empty()) return;
  const std::string_view text = stream.before(size, size + token.size() - 1);
  for (std::size_t at = text.find(token); at != text.npos; at = text.find(token, at + 1)) {
    call(stream.position() + size - text.size() + at);
  }
}

}  // namespace Filter
